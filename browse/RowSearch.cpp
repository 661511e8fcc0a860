#include "browse/RowSearch.h"
#include "browse/BrowserRowModel.h"
#include "foundation/Strings.h"

namespace {
bool IsPlainAscii(const QString& text)
{
    for (QChar c : text)
        if (c.unicode() >= 0x80)
            return false;
    return true;
}
}

RowSearch::RowSearch(const QString& text, bool idOnly, bool prefixOnly, bool relaxed)
    : m_needle(RelaxedSearch(text.toUpper(), relaxed)), m_idOnly(idOnly), m_prefixOnly(prefixOnly), m_relaxed(relaxed)
{
}

bool RowSearch::Matches(const QString& field) const
{
    // Folding copies the text, so it is done only where there is an accent to fold.
    const QString haystack = m_relaxed && !IsPlainAscii(field) ? FoldAccents(field) : field;
    return m_prefixOnly ? haystack.startsWith(m_needle, Qt::CaseInsensitive) : haystack.contains(m_needle, Qt::CaseInsensitive);
}

bool RowSearch::SearchMatch(const BrowserRowModel& rows, int row) const
{
    const BrowserRow& r = rows.Row(row);
    return Matches(r.text) || (!m_idOnly && (Matches(r.sub1) || Matches(r.sub2)));
}

int RowSearch::Next(const BrowserRowModel& rows, int selected) const
{
    const int count = rows.Count();
    if (m_needle.trimmed().isEmpty() || count == 0)
        return -1;
    if (selected < 0 || selected >= count || !SearchMatch(rows, selected)) {
        for (int row = 0; row < count; ++row)
            if (SearchMatch(rows, row))
                return row;
        return -1;
    }
    for (int step = 1; step <= count; ++step) {
        const int row = (selected + step) % count;
        if (SearchMatch(rows, row))
            return row;
    }
    return selected;
}
