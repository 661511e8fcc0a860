#include "foundation/ui/WidgetDialogs.h"
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>

namespace {
QMessageBox::Icon ToQt(Dialogs::Icon icon)
{
    switch (icon) {
    case Dialogs::Icon::Information: return QMessageBox::Information;
    case Dialogs::Icon::Warning: return QMessageBox::Warning;
    case Dialogs::Icon::Critical: return QMessageBox::Critical;
    case Dialogs::Icon::Question: return QMessageBox::Question;
    case Dialogs::Icon::None: break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ToQt(Dialogs::Buttons buttons)
{
    switch (buttons) {
    case Dialogs::Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Dialogs::Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case Dialogs::Buttons::Ok: break;
    }
    return QMessageBox::Ok;
}

void AddLine(QMenu& menu, const Dialogs::PopupLine& line)
{
    if (line.text == QLatin1String("-")) {
        menu.addSeparator();
    } else if (line.text.startsWith(QLatin1Char('-'))) {
        menu.addSection(line.text.mid(1));
    } else if (!line.lines.empty()) {
        QMenu* sub = menu.addMenu(line.text);
        sub->setEnabled(line.enabled);
        for (const auto& subLine : line.lines)
            AddLine(*sub, subLine);
    } else {
        QAction* action = menu.addAction(line.text);
        action->setData(line.key);
        action->setEnabled(line.enabled);
        action->setCheckable(line.checkable);
        action->setChecked(line.checked);
    }
}

Dialogs::Answer FromQt(int button)
{
    switch (button) {
    case QMessageBox::Yes: return Dialogs::Answer::Yes;
    case QMessageBox::No: return Dialogs::Answer::No;
    case QMessageBox::Cancel: return Dialogs::Answer::Cancel;
    default: return Dialogs::Answer::Ok;
    }
}
}

Dialogs::Answer WidgetDialogs::MessageBox(const Dialogs::Box& box)
{
    QMessageBox message(ToQt(box.icon), box.title, box.text, ToQt(box.buttons), QApplication::activeWindow());
    // A box without a title still needs a caption in the window list.
    if (box.title.isEmpty())
        message.setWindowTitle(QApplication::applicationDisplayName());
    return FromQt(message.exec());
}

std::optional<QString> WidgetDialogs::InputBox(const QString& prompt, const QString& title, const QString& defaultText)
{
    bool ok = false;
    const QString text = QInputDialog::getText(QApplication::activeWindow(), title, prompt, QLineEdit::Normal, defaultText, &ok);
    if (!ok)
        return std::nullopt;
    return text;
}

QString WidgetDialogs::PopupMenu(const QVector<Dialogs::PopupLine>& lines, const QPoint& globalPos)
{
    QMenu menu;
    for (const auto& line : lines)
        AddLine(menu, line);
    QAction* chosen = menu.exec(globalPos);
    return chosen ? chosen->data().toString() : QString();
}

QString WidgetDialogs::OpenFileName(const QString& title, const QString& folder, const QString& filter)
{
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), title, folder, filter);
}
