#include "tools/Translations.h"
#include "foundation/db/Database.h"
#include "kernelapi/KernelError.h"
#include "tools/TableWriter.h"
#include <QFile>

namespace {
const QString ResourcePath = QStringLiteral(":/korvane/contents.tsv");
}

QVector<Translations::Row> Translations::Parse(const QByteArray& text)
{
    QVector<Row> rows;
    const QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString line = lines[i];
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        rows << ParseLine(line, i + 1);
    }
    return rows;
}

Translations::Row Translations::ParseLine(const QString& line, int number)
{
    const QStringList fields = line.split(QLatin1Char('\t'));
    if (fields.size() != 3 || fields[0].isEmpty() || fields[1].isEmpty())
        throw KernelError(QStringLiteral("Translations, line %1: expected Original<TAB>Language<TAB>Translation, found '%2'")
                              .arg(number)
                              .arg(line));
    return Row{fields[0], fields[1], fields[2]};
}

QVector<Translations::Row> Translations::Builtin()
{
    QFile file(ResourcePath);
    if (!file.open(QIODevice::ReadOnly))
        throw KernelError(QStringLiteral("The built-in translations (%1) are missing").arg(ResourcePath));
    return Parse(file.readAll());
}

int Translations::Load(Database& kernelDb)
{
    const QVector<Row> rows = Builtin();
    kernelDb.Transaction([&] {
        TableWriter contents(kernelDb, QStringLiteral("Contents"),
                             {QStringLiteral("Original"), QStringLiteral("Language"), QStringLiteral("Translation")});
        for (const Row& row : rows)
            contents.Add({row.original, row.language, row.translation});
    });
    return int(rows.size());
}
