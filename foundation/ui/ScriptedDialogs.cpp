#include "foundation/ui/ScriptedDialogs.h"

namespace {
template <typename T>
T TakeOr(std::deque<T>& queue, T fallback)
{
    if (queue.empty())
        return fallback;
    T value = std::move(queue.front());
    queue.pop_front();
    return value;
}
}

Dialogs::Answer ScriptedDialogs::MessageBox(const Dialogs::Box& box)
{
    boxes.push_back(box);
    return TakeOr(answers, Dialogs::DefaultAnswer(box.buttons));
}

std::optional<QString> ScriptedDialogs::InputBox(const QString& prompt, const QString& title, const QString& defaultText)
{
    prompts.push_back(prompt);
    inputTitles.push_back(title);
    inputDefaults.push_back(defaultText);
    return TakeOr(inputs, std::optional<QString>(defaultText));
}

QString ScriptedDialogs::PopupMenu(const QVector<Dialogs::PopupLine>& lines, const QPoint&)
{
    menus.push_back(lines);
    return TakeOr(popupChoices, QString());
}

QString ScriptedDialogs::OpenFileName(const QString&, const QString&, const QString&)
{
    return TakeOr(fileNames, QString());
}
