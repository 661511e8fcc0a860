#pragma once
#include <QString>

class IniFile;

// One entry of the menu, read from section "Menu_<index>" of the menu definition file.
class CMenuItem
{
public:
    enum Action : qint16 { Logout = 0, OpenForm = 1, Exit = 2, Dummy = 3 };

    // Maps the Action word of the file: empty is Dummy; an unknown word stays Logout.
    static Action ActionFromWord(const QString& word);
    // Reads the entry of the given 1-based index.
    void Load(const IniFile& file, qint16 index);

    Action action = Logout;
    QString Caption;
    QString FormName;
    QString FileName;
    qint16 Index = 0;
};
