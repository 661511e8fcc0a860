#pragma once
#include <QString>

// One lexical piece of a catalogue SQL text. `text` is the piece as written; `value` is what a
// quoted piece means: the characters of a 'literal' or "literal" with doubled quotes undone,
// the name inside [brackets], the date inside #hashes#. Other kinds keep value == text.
struct SqlToken
{
    enum class Kind { Space, Word, Name, String, Number, Date, Symbol };

    Kind kind = Kind::Symbol;
    QString text;
    QString value;

    bool IsSpace() const { return kind == Kind::Space; }
    bool IsWord(QStringView word) const { return kind == Kind::Word && value.compare(word, Qt::CaseInsensitive) == 0; }
    bool IsSymbol(QStringView symbol) const { return kind == Kind::Symbol && text == symbol; }
};
