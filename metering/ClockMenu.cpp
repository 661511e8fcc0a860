#include "metering/ClockMenu.h"
#include "foundation/Tr.h"

namespace ClockMenu {
namespace {
Dialogs::PopupLine Heading(const QString& text)
{
    return Dialogs::PopupLine::Item(QStringLiteral("-") + Tr(text));
}

Dialogs::PopupLine Item(const QString& text, const char* keyPrefix, qint32 number)
{
    Dialogs::PopupLine line = Dialogs::PopupLine::Item(Tr(text), QLatin1String(keyPrefix) + QString::number(number), number);
    line.checkable = true;
    return line;
}

void Check(QVector<Dialogs::PopupLine>& lines, const QString& key)
{
    for (Dialogs::PopupLine& line : lines)
        if (line.key == key)
            line.checked = true;
}

const Dialogs::PopupLine* Find(const QVector<Dialogs::PopupLine>& lines, const QString& key)
{
    for (const Dialogs::PopupLine& line : lines)
        if (!key.isEmpty() && line.key == key)
            return &line;
    return nullptr;
}
}

QVector<Dialogs::PopupLine> Lines(qint32 mode, qint32 size)
{
    QVector<Dialogs::PopupLine> lines{
        Heading(QStringLiteral("Clock")),
        Dialogs::PopupLine::Item(QStringLiteral("-")),
        Heading(QStringLiteral("Mode")),
        Item(QStringLiteral("Time_h"), ModeKey, 0),
        Item(QStringLiteral("Date"), ModeKey, 1),
        Item(QStringLiteral("Time + Date (alternated)"), ModeKey, 2),
        Item(QStringLiteral("Time + Date (2 lines)"), ModeKey, 3),
        Heading(QStringLiteral("Size")),
        Item(QStringLiteral("Tiny"), SizeKey, Sizes[0]),
        Item(QStringLiteral("Small"), SizeKey, Sizes[1]),
        Item(QStringLiteral("Medium"), SizeKey, Sizes[2]),
        Item(QStringLiteral("Big"), SizeKey, Sizes[3]),
        Item(QStringLiteral("Huge"), SizeKey, Sizes[4]),
        Dialogs::PopupLine::Item(QStringLiteral("-")),
        Dialogs::PopupLine::Item(Tr(QStringLiteral("Cancel")), QLatin1String(CancelKey)),
    };
    Check(lines, QLatin1String(ModeKey) + QString::number(mode));
    Check(lines, QLatin1String(ModeKey) + QString::number(size));
    return lines;
}

Change Choose(const QVector<Dialogs::PopupLine>& lines, const QString& key)
{
    Change change;
    const Dialogs::PopupLine* line = Find(lines, key);
    if (!line)
        return change;
    if (key.startsWith(QLatin1String("IFClock.ClockMode")))
        change.mode = line->data.toInt();
    else if (key.startsWith(QLatin1String("IFClock.ClockSize")))
        change.size = line->data.toInt();
    return change;
}
}
