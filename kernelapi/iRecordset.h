#pragma once
#include <QString>
#include <QVariant>
#include <memory>

// A dynaset: an updatable view of a table or of the rows of an SQL text, with a current row.
// foundation/db/Recordset implements it; the kernel hands these out from Execute and
// OpenConfigTable. Failures throw KernelError.
class iRecordset
{
public:
    virtual ~iRecordset() = default;

    enum class FieldType { Text, Integer, Real, Boolean, DateTime, Other };

    // Position.
    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    virtual void MoveNext() = 0;
    virtual void MovePrevious() = 0;
    virtual bool IsBOF() const = 0; // before the first row (EOF and BOF are C macros)
    virtual bool IsEOF() const = 0; // after the last row
    virtual int RecordCount() const = 0;

    // Search by a criteria text such as "ID = 'ABC0001'"; NoMatch tells the result.
    virtual void FindFirst(const QString& criteria) = 0;
    virtual void FindNext(const QString& criteria) = 0;
    virtual bool NoMatch() const = 0;

    // Filtered view: the criteria applies to the recordset opened next by OpenFiltered.
    virtual void SetFilter(const QString& criteria) = 0;
    virtual QString Filter() const = 0;
    // A new recordset over the same source restricted by the filter set before.
    virtual std::unique_ptr<iRecordset> OpenRecordset() const = 0;

    // Change.
    virtual void AddNew() = 0;
    virtual void Edit() = 0;
    virtual void Update() = 0;
    virtual void CancelUpdate() = 0;
    virtual void Delete() = 0;
    virtual void Requery() = 0;

    // Fields of the current row. Text values read through the Null guard come from Text().
    virtual int FieldCount() const = 0;
    virtual QString FieldName(int index) const = 0;
    virtual int FieldSize(int index) const = 0;       // declared size of a text field, 0 if none
    virtual FieldType FieldKind(int index) const = 0;
    virtual int FieldIndex(const QString& name) const = 0; // -1 when absent, case-insensitive
    virtual QVariant Value(const QString& name) const = 0;
    virtual QVariant Value(int index) const = 0;
    virtual void SetValue(const QString& name, const QVariant& value) = 0;
    virtual void SetValue(int index, const QVariant& value) = 0;

    // Null guard: a Null text reads as the empty string.
    QString Text(const QString& name) const { return Value(name).isNull() ? QString() : Value(name).toString(); }
};
