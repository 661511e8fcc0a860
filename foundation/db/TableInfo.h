#pragma once
#include "kernelapi/iRecordset.h"
#include <QString>
#include <QStringList>
#include <QVector>

// What the store declares for one column.
struct FieldInfo
{
    QString name;
    iRecordset::FieldType kind = iRecordset::FieldType::Other;
    int size = 0; // declared size of a text field; 0 when the store declares none

    // Kind and size from a declared type as either engine spells it: VARCHAR(7), TEXT(50),
    // INTEGER, BOOLEAN, DATETIME, character varying(7), korvane_text_7, citext, timestamp...
    static FieldInfo FromDeclaredType(const QString& name, const QString& declaredType);
};

// The columns of one table, in the store's order.
struct TableInfo
{
    QString name;
    QVector<FieldInfo> fields;
    QStringList primaryKey; // key columns in key order; empty when the table has none
    bool view = false;      // a view: readable, never written through a recordset

    // Index of a field by name, case-insensitive; -1 when absent.
    int IndexOf(const QString& field) const;
};
