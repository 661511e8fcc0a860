#include "shell/CMenuItem.h"
#include "foundation/Ini.h"

CMenuItem::Action CMenuItem::ActionFromWord(const QString& word)
{
    if (word == QLatin1String("OpenForm"))
        return OpenForm;
    if (word == QLatin1String("Logout"))
        return Logout;
    if (word == QLatin1String("Exit"))
        return Exit;
    if (word == QLatin1String("Dummy") || word.isEmpty())
        return Dummy;
    return Logout;
}

void CMenuItem::Load(const IniFile& file, qint16 index)
{
    Index = index;
    const QString section = QStringLiteral("Menu_") + QString::number(index);
    action = ActionFromWord(ReadIni(file, section, QStringLiteral("Action"), QString()));
    if (action == OpenForm)
        FormName = ReadIni(file, section, QStringLiteral("Form"), QString());
    Caption = ReadIni(file, section, QStringLiteral("Caption"), QString());
}
