#include "browse/CSignalArrow.h"

CSignalArrow::CSignalArrow(const QString& cartID, qint32 color, const QString& savedIcon)
    : m_cartID(cartID), m_color(color), m_savedIcon(savedIcon)
{
}

QString CSignalArrow::ColorName() const
{
    static const char* const names[] = {"Blue", "Red", "Green", "Yellow", "Gray"};
    return m_color >= Blue && m_color <= Gray ? QString::fromLatin1(names[m_color]) : QString();
}

QString CSignalArrow::ArrowIcon() const
{
    return QStringLiteral("Arrow") + ColorName();
}
