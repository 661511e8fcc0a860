#include "onair/CueSpeed.h"
#include "metering/Rounding.h"
#include <algorithm>

void CueSpeed::Init()
{
    m_speed = StartSpeed;
    m_delay = StartDelay;
}

void CueSpeed::Update()
{
    if (m_delay > 0) {
        --m_delay;
        return;
    }
    if (m_speed < TopSpeed)
        m_speed = RoundHalfEven(m_speed * 1.2);
    m_speed = std::min(m_speed, TopSpeed);
}
