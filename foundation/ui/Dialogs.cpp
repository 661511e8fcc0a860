#include "foundation/ui/Dialogs.h"
#include "foundation/ui/PrintDialogs.h"
#include "foundation/ui/WidgetDialogs.h"

namespace Dialogs {
namespace {
std::unique_ptr<Handler>& Current()
{
    static std::unique_ptr<Handler> handler;
    if (!handler)
        handler = std::make_unique<WidgetDialogs>();
    return handler;
}
}

Answer DefaultAnswer(Buttons buttons)
{
    return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
}

std::unique_ptr<Handler> SetHandler(std::unique_ptr<Handler> handler)
{
    std::swap(Current(), handler);
    return handler;
}

void InstallFromEnvironment()
{
    if (qgetenv("KORVANE_DIALOGS") == "print")
        SetHandler(std::make_unique<PrintDialogs>());
    else
        SetHandler(std::make_unique<WidgetDialogs>());
}

Answer MessageBox(const QString& text, Buttons buttons, const QString& title, Icon icon)
{
    return Current()->MessageBox(Box{text, buttons, title, icon});
}

std::optional<QString> InputBox(const QString& prompt, const QString& title, const QString& defaultText)
{
    return Current()->InputBox(prompt, title, defaultText);
}

QString PopupMenu(const QVector<PopupLine>& lines, const QPoint& globalPos)
{
    return Current()->PopupMenu(lines, globalPos);
}

QString OpenFileName(const QString& title, const QString& folder, const QString& filter)
{
    return Current()->OpenFileName(title, folder, filter);
}
}
