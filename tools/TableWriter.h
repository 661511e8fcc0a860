#pragma once
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariantList>

class Database;

// Adds rows to one table through a statement prepared once, so that writing many rows costs
// one parse. Run it inside Database::Transaction when it writes more than one row.
class TableWriter
{
public:
    TableWriter(Database& db, const QString& table, const QStringList& fields);

    // Adds one row; values in the order of the fields. Throws KernelError on failure.
    void Add(const QVariantList& values);

private:
    QString m_table;
    int m_fieldCount;
    QSqlQuery m_query;
};
