#include "foundation/db/SqlDialect.h"
#include "foundation/db/PostgresDialect.h"
#include "foundation/db/SqliteDialect.h"
#include "foundation/db/SqlTokenizer.h"
#include "kernelapi/KernelError.h"
#include <QRegularExpression>
#include <optional>

namespace {
using Tokens = std::vector<SqlToken>;

// Operators that bind tighter than & in the catalogue dialect: an operand beside one of them
// belongs to that operator, so it must not be folded into a neighbouring literal.
bool IsArithmetic(const SqlToken& token)
{
    static const QStringList symbols{"+", "-", "*", "/", "\\", "^"};
    return (token.kind == SqlToken::Kind::Symbol && symbols.contains(token.text)) || token.IsWord(u"mod");
}

bool IsConcatenation(const SqlToken& token)
{
    return token.IsSymbol(u"&");
}

struct Constant
{
    QString value;
    size_t end = 0; // one past the last token of the operand
    bool folded = false;
};

// chr(n) with a whole n naming a character that a literal can hold.
std::optional<Constant> CharacterAt(const Tokens& tokens, size_t i)
{
    if (!tokens[i].IsWord(u"chr") && !tokens[i].IsWord(u"chr$"))
        return std::nullopt;
    const size_t open = SqlTokenizer::NextSignificant(tokens, i + 1);
    const size_t number = SqlTokenizer::NextSignificant(tokens, open + 1);
    const size_t close = SqlTokenizer::NextSignificant(tokens, number + 1);
    if (close >= tokens.size() || !tokens[open].IsSymbol(u"(") || tokens[number].kind != SqlToken::Kind::Number
        || !tokens[close].IsSymbol(u")"))
        return std::nullopt;
    bool ok = false;
    const uint code = tokens[number].text.toUInt(&ok);
    if (!ok || code == 0 || code > 0x10FFFF || QChar::isSurrogate(code))
        return std::nullopt;
    return Constant{QString::fromUcs4(reinterpret_cast<const char32_t*>(&code), 1), close + 1};
}

std::optional<Constant> ConstantAt(const Tokens& tokens, size_t i)
{
    if (i >= tokens.size())
        return std::nullopt;
    if (tokens[i].kind == SqlToken::Kind::String)
        return Constant{tokens[i].value, i + 1};
    return CharacterAt(tokens, i);
}

bool FollowedByArithmetic(const Tokens& tokens, size_t end)
{
    const size_t next = SqlTokenizer::NextSignificant(tokens, end);
    return next < tokens.size() && IsArithmetic(tokens[next]);
}

// Extends a constant over "& constant" pieces for as long as the meaning allows.
Constant FoldChain(const Tokens& tokens, Constant first)
{
    for (;;) {
        const size_t amp = SqlTokenizer::NextSignificant(tokens, first.end);
        if (amp >= tokens.size() || !IsConcatenation(tokens[amp]))
            return first;
        const auto next = ConstantAt(tokens, SqlTokenizer::NextSignificant(tokens, amp + 1));
        if (!next || FollowedByArithmetic(tokens, next->end))
            return first;
        first.value += next->value;
        first.end = next->end;
        first.folded = true;
    }
}

// Replaces every chain of constants joined by & with the one literal it stands for.
Tokens FoldConcatenation(const Tokens& tokens)
{
    Tokens out;
    out.reserve(tokens.size());
    bool afterArithmetic = false;
    for (size_t i = 0; i < tokens.size();) {
        std::optional<Constant> constant;
        if (!afterArithmetic)
            constant = ConstantAt(tokens, i);
        if (constant)
            constant = FoldChain(tokens, *constant);
        if (constant && constant->folded) {
            out.push_back({SqlToken::Kind::String, SqlDialect::StringLiteral(constant->value), constant->value});
            i = constant->end;
        } else {
            out.push_back(tokens[i++]);
        }
        if (!out.back().IsSpace())
            afterArithmetic = IsArithmetic(out.back());
    }
    return out;
}

// Marks the literals that are operands of LIKE (and of & chains on its right side).
std::vector<bool> MarkPatterns(const Tokens& tokens)
{
    std::vector<bool> pattern(tokens.size(), false);
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].IsWord(u"like"))
            continue;
        size_t operand = SqlTokenizer::NextSignificant(tokens, i + 1);
        while (operand < tokens.size() && !tokens[operand].IsSymbol(u"(") && !tokens[operand].IsWord(u"like")) {
            pattern[operand] = tokens[operand].kind == SqlToken::Kind::String;
            const size_t next = SqlTokenizer::NextSignificant(tokens, operand + 1);
            if (next >= tokens.size() || !(IsConcatenation(tokens[next]) || tokens[next].IsSymbol(u"||")))
                break;
            operand = SqlTokenizer::NextSignificant(tokens, next + 1);
        }
    }
    return pattern;
}

// A date of the catalogue dialect: yyyy-mm-dd or m/d/yyyy, with an optional h:mm[:ss].
QDateTime ParseDate(const QString& text)
{
    static const QRegularExpression iso(
        QStringLiteral(R"(^([0-9]{4})-([0-9]{1,2})-([0-9]{1,2})(?:[ T]([0-9]{1,2}):([0-9]{2})(?::([0-9]{2}))?)?$)"));
    static const QRegularExpression us(
        QStringLiteral(R"(^([0-9]{1,2})/([0-9]{1,2})/([0-9]{4})(?: ([0-9]{1,2}):([0-9]{2})(?::([0-9]{2}))?)?$)"));
    const QString trimmed = text.trimmed();
    QRegularExpressionMatch match = iso.match(trimmed);
    int year = 1;
    int month = 2;
    int day = 3;
    if (!match.hasMatch()) {
        match = us.match(trimmed);
        year = 3;
        month = 1;
        day = 2;
    }
    if (!match.hasMatch())
        return {};
    const auto number = [&](int group) { return match.captured(group).toInt(); };
    const QDate date(number(year), number(month), number(day));
    const QTime time(number(4), number(5), number(6));
    return date.isValid() && time.isValid() ? QDateTime(date, time) : QDateTime();
}
}

std::unique_ptr<SqlDialect> SqlDialect::For(Engine engine)
{
    if (engine == Engine::PostgreSQL)
        return std::make_unique<PostgresDialect>();
    return std::make_unique<SqliteDialect>();
}

QString SqlDialect::Translate(const QString& sql) const
{
    return Render(FoldConcatenation(SqlTokenizer::Tokenize(sql)), sql);
}

QString SqlDialect::TranslateCriteria(const QString& criteria) const
{
    return Translate(criteria);
}

QVariant SqlDialect::BindValue(const QVariant& value) const
{
    return value;
}

QString SqlDialect::StringLiteral(const QString& value)
{
    QString quoted = value;
    quoted.replace(u'\'', QStringLiteral("''"));
    return u'\'' + quoted + u'\'';
}

QString SqlDialect::LikePattern(const QString& pattern) const
{
    QString translated = pattern;
    translated.replace(u'*', u'%').replace(u'?', u'_');
    return translated;
}

QString SqlDialect::Render(const std::vector<SqlToken>& tokens, const QString& sql) const
{
    const std::vector<bool> pattern = MarkPatterns(tokens);
    QString out;
    out.reserve(sql.size() + sql.size() / 4);
    for (size_t i = 0; i < tokens.size(); ++i) {
        const SqlToken& token = tokens[i];
        switch (token.kind) {
        case SqlToken::Kind::String:
            out += StringLiteral(pattern[i] ? LikePattern(token.value) : token.value);
            break;
        case SqlToken::Kind::Name:
            out += QuoteIdentifier(token.value);
            break;
        case SqlToken::Kind::Date:
            out += RenderDate(token, sql);
            break;
        case SqlToken::Kind::Word:
            out += RenderWord(tokens, i);
            break;
        default:
            out += IsConcatenation(token) ? QStringLiteral("||") : token.text;
        }
    }
    return out;
}

QString SqlDialect::RenderWord(const std::vector<SqlToken>& tokens, size_t index) const
{
    const SqlToken& token = tokens[index];
    if (token.IsWord(u"true") || token.IsWord(u"false"))
        return BooleanLiteral(token.IsWord(u"true"));
    if (token.IsWord(u"like"))
        return LikeOperator();
    const size_t next = SqlTokenizer::NextSignificant(tokens, index + 1);
    if (next < tokens.size() && tokens[next].IsSymbol(u"(")) {
        const QString name = FunctionName(token.value.toLower());
        if (!name.isEmpty())
            return name;
    }
    return token.text;
}

QString SqlDialect::RenderDate(const SqlToken& token, const QString& sql) const
{
    const QDateTime value = ParseDate(token.value);
    if (!value.isValid())
        throw KernelError(QStringLiteral("Invalid date %1 in SQL: %2").arg(token.text, sql));
    return DateLiteral(value);
}
