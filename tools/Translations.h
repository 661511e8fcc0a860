#pragma once
#include <QByteArray>
#include <QString>
#include <QVector>

class Database;

// The translations that come with the tool (contents.tsv, compiled in as a resource) and
// their way into table Contents of the kernel's database.
class Translations
{
public:
    struct Row
    {
        QString original;
        QString language;
        QString translation;
    };

    // Rows of a tab-separated text: Original, Language, Translation; lines starting with '#'
    // and empty lines are skipped, nothing is trimmed. A line without exactly three fields,
    // or with an empty original or language, throws KernelError naming the line.
    static QVector<Row> Parse(const QByteArray& text);
    // The rows of the built-in contents.tsv.
    static QVector<Row> Builtin();
    // Adds the built-in rows to Contents in one transaction; returns how many.
    static int Load(Database& kernelDb);

private:
    static Row ParseLine(const QString& line, int number);
};
