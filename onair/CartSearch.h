#pragma once
#include <QList>
#include <QString>

class Database;

// The carts whose ID, description or comment contain a text typed by the user. The text goes
// into the SQL through the quoting rule, and its wildcard characters are widened to the
// one-character wildcard, so neither a quote nor a wildcard can change the query; the rows
// the query gives are then kept only when one of the fields holds the text as typed.
namespace CartSearch {
struct Row
{
    QString ID, Descripcio, Comentari;
    bool operator==(const Row&) const = default;
};

// "SELECT * FROM Cart WHERE ID like ... OR Descripcio like ... OR Comentari like ...".
QString Sql(const QString& text);
// Whether a row holds the text (ignoring case) in one of its fields.
bool Holds(const Row& row, const QString& text);
QList<Row> Find(Database& database, const QString& text);
}
