#pragma once
#include "kernelapi/iRecordset.h"
#include <QString>
#include <QVector>

// What the store declares for one column.
struct FieldInfo
{
    QString name;
    iRecordset::FieldType kind = iRecordset::FieldType::Other;
    int size = 0; // declared size of a text field; 0 when the store declares none
};

// The columns of one table, in the store's order.
struct TableInfo
{
    QString name;
    QVector<FieldInfo> fields;

    // Index of a field by name, case-insensitive; -1 when absent.
    int IndexOf(const QString& field) const;
};
