#include "editing/EraserStatusTable.h"

namespace {
using Title = EraserStatusTable::Title;
using Switch = EraserStatusTable::Switch;

constexpr EraserStatusTable::Row Rows[] = {
    {Title::Empty, true, "", false, false, true, "NoBlankTape", Switch::Off, true},
    {Title::CartID, true, "Erase?", false, false, true, "Ready", Switch::Off, true},
    {Title::Unchanged, true, "Erasing", true, false, true, "Erasing", Switch::On, true},
    {Title::Unchanged, false, "", false, true, true, "Expiring", Switch::Off, true},
};
constexpr EraserStatusTable::Row Unknown = {Title::Unchanged, true, "Unknown", false, false, false, "", Switch::Unchanged, false};
}

const EraserStatusTable::Row& EraserStatusTable::Find(qint32 status)
{
    return status >= NoCart && status <= Expiring ? Rows[status] : Unknown;
}
