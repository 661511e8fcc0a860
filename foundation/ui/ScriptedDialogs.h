#pragma once
#include "foundation/ui/Dialogs.h"
#include <QStringList>
#include <deque>

// Dialogs for tests: answers come from queues filled by the test (the default answer when a
// queue is empty) and every box asked is kept so the test can read it back.
class ScriptedDialogs : public Dialogs::Handler
{
public:
    Dialogs::Answer MessageBox(const Dialogs::Box& box) override;
    std::optional<QString> InputBox(const QString& prompt, const QString& title, const QString& defaultText) override;
    QString PopupMenu(const QVector<Dialogs::PopupLine>& lines, const QPoint& globalPos) override;
    QString OpenFileName(const QString& title, const QString& folder, const QString& filter) override;

    std::deque<Dialogs::Answer> answers;
    std::deque<std::optional<QString>> inputs;
    std::deque<QString> popupChoices;
    std::deque<QString> fileNames;

    QVector<Dialogs::Box> boxes;
    QStringList prompts;
    QStringList inputTitles;
    QStringList inputDefaults;
    QVector<QVector<Dialogs::PopupLine>> menus;
};
