#include "foundation/controls/FlashingLight.h"
#include <utility>

FlashingLight::FlashingLight(int tickMs, Show show)
    : m_show(std::move(show))
{
    m_timer.setInterval(tickMs);
}

void FlashingLight::SetFlashing(bool flashing)
{
    m_flashing = flashing;
    if (flashing)
        m_timer.start();
    else
        m_timer.stop();
    SetLit(!flashing);
}

void FlashingLight::SetLit(bool lit)
{
    m_lit = lit;
    m_show(lit);
}
