#pragma once
#include "foundation/ui/Dialogs.h"

// Headless dialogs: every box gets its default button and is printed to standard error as
// "[dialog] title: text"; input boxes keep their default text; menus choose nothing.
class PrintDialogs : public Dialogs::Handler
{
public:
    Dialogs::Answer MessageBox(const Dialogs::Box& box) override;
    std::optional<QString> InputBox(const QString& prompt, const QString& title, const QString& defaultText) override;
    QString PopupMenu(const QVector<Dialogs::PopupLine>& lines, const QPoint& globalPos) override;
    QString OpenFileName(const QString& title, const QString& folder, const QString& filter) override;
};
