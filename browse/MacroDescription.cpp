#include "browse/MacroDescription.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"

namespace MacroDescription {
int NextNumber(int previous)
{
    return previous >= 1000000 || previous < 1 ? 1 : previous + 1;
}

QString Ask()
{
    static int number = 0;
    number = NextNumber(number);
    const std::optional<QString> typed = Dialogs::InputBox(
        Tr(QStringLiteral("The Macro you are going to save has no description. Please, insert a description for this Macro.")),
        Tr(QStringLiteral("Macro Description")), Tr(QStringLiteral("New Macro")) + QLatin1Char(' ') + QString::number(number));
    return typed ? typed->trimmed() : QString();
}
}
