#include "foundation/ui/PrintDialogs.h"
#include <cstdio>

namespace {
void Print(const QString& title, const QString& text)
{
    QString flat = text;
    flat.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    std::fprintf(stderr, "[dialog] %s: %s\n", qUtf8Printable(title), qUtf8Printable(flat));
    std::fflush(stderr);
}
}

Dialogs::Answer PrintDialogs::MessageBox(const Dialogs::Box& box)
{
    Print(box.title, box.text);
    return Dialogs::DefaultAnswer(box.buttons);
}

std::optional<QString> PrintDialogs::InputBox(const QString& prompt, const QString& title, const QString& defaultText)
{
    Print(title, prompt);
    return defaultText;
}

QString PrintDialogs::PopupMenu(const QVector<Dialogs::PopupLine>& lines, const QPoint&)
{
    Print(QStringLiteral("menu"), QString::number(lines.size()) + QStringLiteral(" lines"));
    return {};
}

QString PrintDialogs::OpenFileName(const QString& title, const QString& folder, const QString&)
{
    Print(title, folder);
    return {};
}
