#pragma once
#include <QString>

// The parts of a SELECT in catalogue dialect, read at the top level of its parentheses:
// select list, FROM clause with its first table, WHERE and ORDER BY. It tells whether rows
// of the select can be written back to that table (one table, no DISTINCT, TOP, join,
// grouping, union or aggregate) and composes the same select with more conditions.
class SqlShape
{
public:
    // Throws KernelError when the text cannot be tokenized (a quote left open).
    static SqlShape Of(const QString& sql);

    bool IsSelect() const { return m_select; }
    bool Updatable() const { return m_updatable; }
    // The first table after FROM, as named (without brackets); empty when none.
    const QString& Table() const { return m_table; }

    // The select restricted further by a criteria text; a statement that cannot take another
    // condition in place is wrapped as a derived table.
    QString WithCondition(const QString& criteria) const;
    // SELECT <select list> FROM <from> with no condition and no order.
    QString Projection() const;

private:
    QString m_sql;
    bool m_select = false;
    bool m_updatable = false;
    bool m_composable = false;
    QString m_table, m_selectList, m_from, m_where, m_orderBy;
};
