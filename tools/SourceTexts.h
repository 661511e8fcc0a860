#pragma once
#include "tools/Translations.h"
#include <QString>
#include <QStringList>
#include <QVector>

// The English texts that the workstation's sources give to the translator, found by reading
// the sources: the literal arguments of Tr(...); the literal captions given to widgets
// (titles, labels, buttons, frames, tool tips), which forms and controls translate at load;
// and the literal arguments of the helpers that pass a text on to Tr (menu lines, captions,
// tips), named with the argument's place in TranslatingHelpers. A new helper of that kind
// belongs in that table. Texts without a letter ("-", "00:00") are no words and are left out;
// a leading "-" (a menu heading) is not part of the text.
class SourceTexts
{
public:
    struct Text
    {
        QString text;
        QString file;
        int line = 0;
    };

    // The texts of one source file's contents, in order; file names them in the result.
    static QVector<Text> Extract(const QString& source, const QString& file);
    // The texts of every .cpp and .h file under the given folders of root, sorted by file.
    static QVector<Text> ExtractFolders(const QString& root, const QStringList& folders);
    // The folders that hold the workstation's screens and controls.
    static QStringList WorkstationFolders();
    // Each distinct text that lacks a row in one of the languages, with the first place it
    // was found ("text  (file:line, no CAT)").
    static QStringList Untranslated(const QVector<Text>& texts, const QVector<Translations::Row>& rows,
                                    const QStringList& languages);

private:
    static QString Unescape(const QString& literal);
    static void AddText(QVector<Text>& texts, QString text, const QString& source, qsizetype at, const QString& file);
    static void ExtractHelperCalls(QVector<Text>& texts, const QString& source, const QString& file);
};
