#include "foundation/db/SqlShape.h"
#include "foundation/db/SqlTokenizer.h"
#include <QStringList>

namespace {
using Tokens = std::vector<SqlToken>;

bool IsOneOf(const SqlToken& token, std::initializer_list<QStringView> words)
{
    for (QStringView word : words) {
        if (token.IsWord(word))
            return true;
    }
    return false;
}

bool EndsFrom(const SqlToken& token)
{
    return IsOneOf(token, {u"where", u"group", u"having", u"order", u"union", u"intersect", u"except", u"limit"});
}

bool IsAggregate(const SqlToken& token)
{
    return IsOneOf(token, {u"count", u"sum", u"avg", u"min", u"max", u"first", u"last"});
}

// Positions of the top-level clause keywords of a select; tokens.size() when absent.
struct Clauses
{
    size_t from, where, order, end;
    bool grouped = false, joined = false, aggregate = false;
};

Clauses FindClauses(const Tokens& tokens)
{
    Clauses c{tokens.size(), tokens.size(), tokens.size(), tokens.size()};
    int depth = 0;
    for (size_t i = 0; i < tokens.size(); ++i) {
        const SqlToken& t = tokens[i];
        depth += t.IsSymbol(u"(") ? 1 : t.IsSymbol(u")") ? -1 : 0;
        const size_t next = SqlTokenizer::NextSignificant(tokens, i + 1);
        if (c.from == tokens.size() && IsAggregate(t) && next < tokens.size() && tokens[next].IsSymbol(u"("))
            c.aggregate = true;
        if (depth != 0)
            continue;
        if (t.IsWord(u"from") && c.from == tokens.size())
            c.from = i;
        else if (c.from == tokens.size())
            continue;
        else if (t.IsWord(u"where") && c.where == tokens.size() && c.order == tokens.size())
            c.where = i;
        else if (t.IsWord(u"order") && c.order == tokens.size())
            c.order = i;
        else if (IsOneOf(t, {u"group", u"having", u"union", u"intersect", u"except", u"limit"}))
            c.grouped = true;
        else if (c.where == tokens.size() && c.order == tokens.size() && (t.IsSymbol(u",") || t.IsWord(u"join")))
            c.joined = true;
    }
    return c;
}

QString Trimmed(const Tokens& tokens, size_t from, size_t to)
{
    return SqlTokenizer::Join(tokens, from, to).trimmed();
}

// The text after ORDER BY.
QString OrderText(const Tokens& tokens, size_t order)
{
    const size_t by = SqlTokenizer::NextSignificant(tokens, order + 1);
    return by < tokens.size() && tokens[by].IsWord(u"by") ? Trimmed(tokens, by + 1, tokens.size()) : QString();
}
}

SqlShape SqlShape::Of(const QString& sql)
{
    SqlShape shape;
    shape.m_sql = sql;
    const Tokens tokens = SqlTokenizer::Tokenize(sql);
    const size_t select = SqlTokenizer::NextSignificant(tokens, 0);
    if (select >= tokens.size() || !tokens[select].IsWord(u"select"))
        return shape;
    shape.m_select = true;
    const Clauses c = FindClauses(tokens);
    if (c.from == tokens.size())
        return shape;
    const size_t first = SqlTokenizer::NextSignificant(tokens, select + 1);
    const bool restricted = IsOneOf(tokens[first], {u"distinct", u"distinctrow", u"top", u"all"});
    const size_t table = SqlTokenizer::NextSignificant(tokens, c.from + 1);
    const bool named = table < tokens.size()
                       && (tokens[table].kind == SqlToken::Kind::Word || tokens[table].kind == SqlToken::Kind::Name)
                       && !EndsFrom(tokens[table]) && !tokens[table].value.isEmpty(); // "[]" names no table
    const size_t fromEnd = std::min(c.where, c.order);
    shape.m_selectList = Trimmed(tokens, first, c.from);
    shape.m_from = Trimmed(tokens, c.from + 1, fromEnd);
    shape.m_where = c.where < tokens.size() ? Trimmed(tokens, c.where + 1, c.order) : QString();
    shape.m_orderBy = c.order < tokens.size() ? OrderText(tokens, c.order) : QString();
    shape.m_table = named ? tokens[table].value : QString();
    shape.m_composable = named && !c.grouped && !IsOneOf(tokens[first], {u"top"});
    shape.m_updatable = shape.m_composable && !restricted && !c.joined && !c.aggregate;
    return shape;
}

QString SqlShape::WithCondition(const QString& criteria) const
{
    if (!m_composable)
        return QStringLiteral("SELECT * FROM (%1) AS korvane_view WHERE (%2)").arg(m_sql, criteria);
    const QString where = m_where.isEmpty() ? QStringLiteral("(%1)").arg(criteria)
                                            : QStringLiteral("(%1) AND (%2)").arg(m_where, criteria);
    QString sql = QStringLiteral("SELECT %1 FROM %2 WHERE %3").arg(m_selectList, m_from, where);
    if (!m_orderBy.isEmpty())
        sql += QStringLiteral(" ORDER BY ") + m_orderBy;
    return sql;
}

QString SqlShape::Projection() const
{
    return QStringLiteral("SELECT %1 FROM %2").arg(m_selectList, m_from);
}
