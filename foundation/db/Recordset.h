#pragma once
#include "kernelapi/iRecordset.h"
#include <QString>
#include <memory>

class Database;

// Dynaset over a table or the rows of an SQL text (catalogue dialect). A table opens in the
// order of its primary key. Opening runs the select once (a bad one throws there); rows
// are read on first use and, after Requery, again on the next read only when the store
// reports a change since; so a requery of a large table costs nothing until it is read.
// They are kept packed (RowStore).
//
// Writes go back to the base table by the row's identity (SQLite rowid, PostgreSQL ctid):
// a select of one table without DISTINCT, TOP, join, grouping or aggregate is updatable;
// anything else, and a view, is read-only and a write throws KernelError.
// Text fields are written trimmed and cut to their declared size; Null text reads as empty
// through Text(). Update after AddNew appends the new row and makes it current; Update after
// Edit writes only the fields that were set. Moving, Requery and a new AddNew or Edit drop
// a pending change. After Delete there is no current row until the next move (MoveNext goes
// to the row that followed the deleted one). The Database must outlive its recordsets.
class Recordset : public iRecordset
{
public:
    Recordset(Database& db, const QString& tableOrSql);
    ~Recordset() override;

    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override;
    void MovePrevious() override;
    bool IsBOF() const override;
    bool IsEOF() const override;
    int RecordCount() const override;

    void FindFirst(const QString& criteria) override;
    void FindNext(const QString& criteria) override;
    bool NoMatch() const override;

    void SetFilter(const QString& criteria) override;
    QString Filter() const override;
    std::unique_ptr<iRecordset> OpenRecordset() const override;

    void AddNew() override;
    void Edit() override;
    void Update() override;
    void CancelUpdate() override;
    void Delete() override;
    void Requery() override;

    int FieldCount() const override;
    QString FieldName(int index) const override;
    int FieldSize(int index) const override;
    FieldType FieldKind(int index) const override;
    int FieldIndex(const QString& name) const override;
    QVariant Value(const QString& name) const override;
    QVariant Value(int index) const override;
    void SetValue(const QString& name, const QVariant& value) override;
    void SetValue(int index, const QVariant& value) override;

    using iRecordset::Text;
    bool Updatable() const;
    // Bytes held for the rows.
    size_t MemoryBytes() const;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};
