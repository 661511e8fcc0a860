#pragma once
#include <QString>

class Database;

// The catalogue's rule for text written to a table: trimmed and cut to the field's declared
// size, so that an overlong text is shortened and never fails.
class WriteRule
{
public:
    static QString Fit(Database& db, const QString& table, const QString& field, const QString& text);
};
