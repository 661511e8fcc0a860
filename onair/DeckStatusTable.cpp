#include "onair/DeckStatusTable.h"
#include <iterator>

namespace {
using Text = DeckStatusTable::Text;
using Slots = DeckStatusTable::Slots;
constexpr QRgb Dark = DeckStatusTable::Dark;
constexpr QRgb Green = 0xff80c080;
constexpr QRgb Grey = 0xffc0c0c0;

// Ready, Playing, Paused, Cueing, Cued, Expiring, Sync.
constexpr DeckStatusTable::Row Rows[] = {
    {Text::Empty, false, false, false, false, Slots::CuePlaySkip, false, true, true, Dark},
    {Text::Playing, true, false, false, false, Slots::CuePauseSkip, true, false, false, Green},
    {Text::PauseClock, false, false, true, true, Slots::CuePlaySkip, false, true, false, Grey},
    {Text::CueClock, false, false, true, false, Slots::CuePauseSkip, true, true, false, Grey},
    {Text::CueClock, false, false, true, true, Slots::Cued, false, true, false, Grey},
    {Text::Unchanged, false, true, false, true, Slots::CuePauseSkip, false, true, true, Grey},
    {Text::Sync, false, false, false, false, Slots::CuePauseSkip, true, false, false, Grey},
};
}

const DeckStatusTable::Row* DeckStatusTable::Find(qint32 status)
{
    return status >= 0 && status < static_cast<qint32>(std::size(Rows)) ? &Rows[status] : nullptr;
}
