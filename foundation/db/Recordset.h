#pragma once
#include "kernelapi/iRecordset.h"
#include <QString>
#include <memory>

class Database;

// Dynaset over a table or the rows of an SQL text. Rows are fetched when first needed and
// again after Requery, so that a requery of a large table costs nothing until it is read.
// Writes go back to the base table by the row's identity (SQLite rowid, PostgreSQL ctid);
// an SQL text over several tables opens read-only. Text fields are written trimmed and cut to
// their declared size; Null text reads as empty through Text().
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

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};
