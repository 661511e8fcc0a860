#pragma once
#include "shell/CMenuItem.h"
#include <QVector>

// The menu definition: rows, columns and entries, from the station file or the file that
// its [Menu] File key names.
class CMenuItems
{
public:
    // Loads at once, as the menu control creates it.
    CMenuItems();

    void LoadMenuItems();

    qint16 Rows = 0;
    qint16 Columns = 0;
    bool Ready = false;
    QString FileName;

    qint16 Count() const { return static_cast<qint16>(m_items.size()); }
    // 1-based.
    const CMenuItem& Item(int index) const { return m_items.at(index - 1); }

private:
    QVector<CMenuItem> m_items;
};
