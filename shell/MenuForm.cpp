#include "shell/MenuForm.h"
#include "foundation/Tr.h"
#include <QPointer>

namespace {
QPointer<MenuForm> g_instance;
const QString Owner = QStringLiteral("MenuForm.");

Dialogs::PopupLine Item(const char* text, const char* name)
{
    return Dialogs::PopupLine::Item(Tr(QString::fromLatin1(text)), Owner + QString::fromLatin1(name));
}

Dialogs::PopupLine Heading(const char* text)
{
    return Dialogs::PopupLine::Item(QStringLiteral("-") + Tr(QString::fromLatin1(text)));
}

Dialogs::PopupLine Separator()
{
    return Dialogs::PopupLine::Item(QStringLiteral("-"));
}
}

MenuForm* MenuForm::Instance()
{
    if (!g_instance)
        g_instance = new MenuForm;
    return g_instance;
}

MenuForm::MenuForm()
    : Form(QStringLiteral("MenuForm"))
{
    setAttribute(Qt::WA_DeleteOnClose, false);
    setWindowTitle(QStringLiteral("Form that holds Menus"));
}

QVector<Dialogs::PopupLine> MenuForm::UMColorsLines() const
{
    return {Item("Edit cartplayer colors", "UMColors(0)"), Item("Edit default colors", "UMColors(1)"), Separator(),
            Item("Cancel", "UMCancel")};
}

QVector<Dialogs::PopupLine> MenuForm::ActionOnSoundLines() const
{
    return {Heading("Listen"),
            Item("Complete sound", "ActionOnSoundPlayAll"),
            Item("Beginning of the sound", "ActionOnSoundPlayBegin"),
            Item("Middle of the sound", "ActionOnSoundPlayMiddle"),
            Item("End of the sound", "ActionOnSoundPlayEnd"),
            Heading("Recalculate"),
            Item("Not very accurate (Fast)", "ActionOnSoundRecalculateFast"),
            Item("Accurate (Slow)", "ActionOnSoundRecalculateRecursive"),
            Separator(),
            Item("Cancel", "ActionOnSoundCancel")};
}

void MenuForm::PopupColors(const QPoint& globalPos)
{
    const QString chosen = Dialogs::PopupMenu(UMColorsLines(), globalPos);
    if (chosen.startsWith(Owner + QStringLiteral("UMColors("))) {
        UMColorsIndex = chosen.mid(Owner.size() + 9, 1).toInt();
        UMColorsChosen = true;
    } else if (chosen == Owner + QStringLiteral("UMCancel")) {
        UMColorsChosen = false;
    }
}

QString MenuForm::PopupActionOnSound(const QPoint& globalPos)
{
    const QString chosen = Dialogs::PopupMenu(ActionOnSoundLines(), globalPos).mid(Owner.size());
    return chosen == QLatin1String("ActionOnSoundCancel") ? QString() : chosen;
}
