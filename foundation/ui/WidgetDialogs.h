#pragma once
#include "foundation/ui/Dialogs.h"

// The real dialogs: Qt message boxes, input dialogs, menus and file dialogs.
class WidgetDialogs : public Dialogs::Handler
{
public:
    Dialogs::Answer MessageBox(const Dialogs::Box& box) override;
    std::optional<QString> InputBox(const QString& prompt, const QString& title, const QString& defaultText) override;
    QString PopupMenu(const QVector<Dialogs::PopupLine>& lines, const QPoint& globalPos) override;
    QString OpenFileName(const QString& title, const QString& folder, const QString& filter) override;
};
