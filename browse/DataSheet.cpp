#include "browse/DataSheet.h"
#include <QStringList>

QStringList DataSheet::Text() const
{
    QStringList text;
    for (const Line& line : m_lines)
        text << line.label + line.value;
    return text;
}
