#pragma once
#include <functional>
#include <memory>

namespace benchmark {
class State;
}
class AudioEngine;
class NullDevice;
class iCartPlayer;

// The workstation started once per run as main starts it, on the demo station with its audio
// on the Null device's virtual clock, for the figures from a hand on a control to the first
// frame that sounds: the time to handle the event, plus the device periods until sound.
class VirtualWorkstation
{
public:
    // The running workstation, started at the first call; Running() is false when it failed.
    static VirtualWorkstation& Get();

    bool Running() const { return m_engine != nullptr; }
    // Each iteration silences the player, runs prepare untimed, then times act and adds the
    // device periods until sound; the periods and the period go beside the budget "within one
    // device period + 2 ms".
    void MeasureToSound(benchmark::State& state, iCartPlayer& player, const std::function<void()>& prepare,
                        const std::function<void()>& act);

private:
    VirtualWorkstation();
    double PeriodMs() const;
    bool Sounds() const;
    // Runs the device until it puts out sound; the number of periods it took (at most 100).
    int PeriodsToSound();
    // Ejects the player and lets its fade out run, so the next figure starts in silence.
    void Silence(iCartPlayer& player);

    AudioEngine* m_engine = nullptr;
    NullDevice* m_device = nullptr;
};
