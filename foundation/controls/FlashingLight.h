#pragma once
#include <QTimer>
#include <functional>

// The light of a panel that can flash to catch the eye: steady it is lit; flashing, the owner
// turns it over at each tick of the light's timer. Every change is handed to the owner's show
// function, which draws the panel lit or unlit.
class FlashingLight
{
public:
    using Show = std::function<void(bool lit)>;

    FlashingLight(int tickMs, Show show);

    bool Flashing() const { return m_flashing; }
    // Starts or stops the timer; either way the light is shown, unlit while it flashes.
    void SetFlashing(bool flashing);
    bool Lit() const { return m_lit; }
    void SetLit(bool lit);
    // One tick of the flashing: lit turns unlit and back.
    void Turn() { SetLit(!m_lit); }
    QTimer& Timer() { return m_timer; }
    const QTimer& Timer() const { return m_timer; }

private:
    QTimer m_timer;
    Show m_show;
    bool m_flashing = false;
    bool m_lit = true;
};
