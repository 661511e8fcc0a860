#pragma once
#include <QtGlobal>

// The speed of winding while a cue button is held: a press starts slow, the first five
// repeats keep that pace, and each repeat after them goes a fifth faster, up to 6000 ms of
// the cart per step. So a short press finds a spot exactly and a long hold crosses a whole
// cart in a few seconds.
class CueSpeed
{
public:
    static constexpr qint32 StartSpeed = 36;
    static constexpr qint16 StartDelay = 5;
    static constexpr qint32 TopSpeed = 6000;

    // A new press: the slow pace again.
    void Init();
    // One repeat of the held button.
    void Update();

    qint32 Speed() const { return m_speed; }
    qint16 Delay() const { return m_delay; }

private:
    qint32 m_speed = StartSpeed;
    qint16 m_delay = StartDelay;
};
