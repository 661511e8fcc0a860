#include "shell/InputRectangle.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include <QRegularExpression>
#include <QStringList>

std::optional<QRect> InputRectangle::Ask(const QString& title, const QRect& proposal)
{
    const QString prompt = Tr(QStringLiteral("Left, top, width and height of the control, in twips:"));
    // The proposal is always an acceptable answer, so a handler that answers with the
    // proposal (nobody at the screen) ends the question.
    const QRect offered = proposal.isValid() ? proposal : QRect(proposal.topLeft(), DefaultSize);
    QString warning;
    for (;;) {
        const auto answer = Dialogs::InputBox(warning + prompt, title, Format(offered));
        if (!answer)
            return std::nullopt;
        if (auto rectangle = Parse(*answer))
            return rectangle;
        warning = Tr(QStringLiteral("Four whole numbers are needed, and a width and height above zero.")) +
                  QLatin1Char('\n');
    }
}

std::optional<QRect> InputRectangle::Parse(const QString& text)
{
    static const QRegularExpression separators(QStringLiteral("[\\s,;]+"));
    const QStringList parts = text.trimmed().split(separators, Qt::SkipEmptyParts);
    if (parts.size() != 4)
        return std::nullopt;
    int values[4];
    for (int k = 0; k < 4; ++k) {
        bool ok = false;
        values[k] = parts.at(k).toInt(&ok);
        if (!ok)
            return std::nullopt;
    }
    if (values[2] <= 0 || values[3] <= 0)
        return std::nullopt;
    return QRect(values[0], values[1], values[2], values[3]);
}

QString InputRectangle::Format(const QRect& rectangle)
{
    return QStringLiteral("%1, %2, %3, %4").arg(rectangle.left()).arg(rectangle.top()).arg(rectangle.width()).arg(rectangle.height());
}
