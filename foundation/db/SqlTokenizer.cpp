#include "foundation/db/SqlTokenizer.h"
#include "kernelapi/KernelError.h"

namespace {
bool IsWordStart(QChar c)
{
    return c.isLetter() || c == u'_';
}

bool IsWordPart(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'$';
}

// The two-character operators (<= >= <> != == ||); everything else is one character.
bool IsTwoCharSymbol(QChar first, QChar second)
{
    switch (first.unicode()) {
    case u'<':
        return second == u'=' || second == u'>';
    case u'>':
    case u'!':
    case u'=':
        return second == u'=';
    case u'|':
        return second == u'|';
    default:
        return false;
    }
}

[[noreturn]] void Unterminated(const char* what, const QString& sql)
{
    throw KernelError(QStringLiteral("Unterminated %1 in SQL: %2").arg(QLatin1String(what), sql));
}

class Scanner
{
public:
    explicit Scanner(const QString& sql) : m_sql(sql) {}

    std::vector<SqlToken> Run()
    {
        m_tokens.reserve(size_t(m_sql.size() / 3 + 1));
        while (m_pos < m_sql.size())
            m_tokens.push_back(Next());
        return std::move(m_tokens);
    }

private:
    SqlToken Next()
    {
        const QChar c = m_sql[m_pos];
        if (c.isSpace())
            return Run(SqlToken::Kind::Space, [](QChar ch) { return ch.isSpace(); });
        if (c == u'\'' || c == u'"')
            return Quoted(c, c, SqlToken::Kind::String, "quoted text");
        if (c == u'[')
            return Quoted(u'[', u']', SqlToken::Kind::Name, "bracketed name");
        if (c == u'#')
            return Quoted(u'#', u'#', SqlToken::Kind::Date, "date literal");
        if (IsWordStart(c))
            return Run(SqlToken::Kind::Word, IsWordPart);
        if (c.isDigit())
            return Run(SqlToken::Kind::Number, [](QChar ch) { return ch.isLetterOrNumber() || ch == u'.'; });
        return Symbol();
    }

    template <typename Predicate>
    SqlToken Run(SqlToken::Kind kind, Predicate belongs)
    {
        const qsizetype start = m_pos;
        while (m_pos < m_sql.size() && belongs(m_sql[m_pos]))
            ++m_pos;
        const QString text = m_sql.mid(start, m_pos - start);
        return {kind, text, text};
    }

    // A piece between open and close; a doubled close inside a quoted text stands for itself.
    SqlToken Quoted(QChar open, QChar close, SqlToken::Kind kind, const char* what)
    {
        const qsizetype start = m_pos++;
        const bool doubling = open == close && kind == SqlToken::Kind::String;
        QString value;
        for (;;) {
            if (m_pos >= m_sql.size())
                Unterminated(what, m_sql);
            const QChar c = m_sql[m_pos++];
            if (c != close) {
                value += c;
            } else if (doubling && m_pos < m_sql.size() && m_sql[m_pos] == close) {
                value += c;
                ++m_pos;
            } else {
                break;
            }
        }
        return {kind, m_sql.mid(start, m_pos - start), value};
    }

    SqlToken Symbol()
    {
        const qsizetype length = m_pos + 1 < m_sql.size() && IsTwoCharSymbol(m_sql[m_pos], m_sql[m_pos + 1]) ? 2 : 1;
        const QString text = m_sql.mid(m_pos, length);
        m_pos += length;
        return {SqlToken::Kind::Symbol, text, text};
    }

    const QString& m_sql;
    qsizetype m_pos = 0;
    std::vector<SqlToken> m_tokens;
};
}

std::vector<SqlToken> SqlTokenizer::Tokenize(const QString& sql)
{
    return Scanner(sql).Run();
}

size_t SqlTokenizer::NextSignificant(const std::vector<SqlToken>& tokens, size_t from)
{
    while (from < tokens.size() && tokens[from].IsSpace())
        ++from;
    return from;
}

QString SqlTokenizer::Join(const std::vector<SqlToken>& tokens, size_t from, size_t to)
{
    QString text;
    for (size_t i = from; i < to && i < tokens.size(); ++i)
        text += tokens[i].text;
    return text;
}
