#pragma once
#include <QString>

class BrowserRowModel;

// The search of the browsers over the rows in memory: the text is looked for, without case,
// in a row's ID (its text) and, unless idOnly, in its first two sub-items; with relaxed, accents
// are folded on both sides. prefixOnly asks that the text starts the field.
class RowSearch
{
public:
    RowSearch(const QString& text, bool idOnly, bool prefixOnly, bool relaxed);

    bool SearchMatch(const BrowserRowModel& rows, int row) const;
    // The row a search selects from the selected one (-1 for none): the first match when the
    // selected row does not match, else the next match after it, wrapping round (possibly
    // itself). -1 when no row matches or the text is empty or blanks only.
    int Next(const BrowserRowModel& rows, int selected) const;

private:
    bool Matches(const QString& field) const;

    QString m_needle;
    bool m_idOnly;
    bool m_prefixOnly;
    bool m_relaxed;
};
