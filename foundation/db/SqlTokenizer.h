#pragma once
#include "foundation/db/SqlToken.h"
#include <QString>
#include <vector>

// Splits a catalogue SQL text into tokens in one pass: 'text' and "text" literals with doubled
// quotes, [bracketed] names, #dates#, words, numbers, operators and runs of blanks. A literal,
// name or date left open throws KernelError naming the SQL text.
class SqlTokenizer
{
public:
    static std::vector<SqlToken> Tokenize(const QString& sql);

    // Index of the first token at or after `from` that is not blank; tokens.size() when none.
    static size_t NextSignificant(const std::vector<SqlToken>& tokens, size_t from);
    // The written text of tokens [from, to).
    static QString Join(const std::vector<SqlToken>& tokens, size_t from, size_t to);
};
