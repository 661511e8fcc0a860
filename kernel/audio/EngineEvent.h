#pragma once
#include <cstdint>

// What the audio callback or a disk worker tells the UI thread about one voice. Plain data, so
// that it crosses threads without locking or allocating.
struct EngineEvent
{
    enum class Kind : std::uint8_t {
        Prepared,      // the voice holds the start of its sound and may sound (disk worker)
        PrepareFailed, // the sound could not be opened; the voice stays silent (disk worker)
        Started,       // a voice chained behind another began to sound (callback)
        Ended,         // the voice played its last frame (callback)
        ReadFailed,    // the file stopped giving audio before its end (disk worker)
    };
    static constexpr int KindCount = 5;

    Kind kind = Kind::Ended;
    int voice = 0;                // the engine's number of the voice
    std::uint32_t generation = 0; // which preparation of the voice the event is about
    std::uint32_t stamp = 0;      // the order in which events were posted, across all voices
};
