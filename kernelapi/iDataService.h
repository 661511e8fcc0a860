#pragma once
#include "kernelapi/Outcome.h"
#include <QObject>

class iRecordset;

// Services on recordsets of the catalogue, for tools that copy rows between two tables.
class iDataService : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iDataService() override = default;

    // Compares the shapes of two recordsets field by field (count, then each field's name,
    // type and size) and stops at the first difference; the outcome fails with a message
    // naming it.
    virtual Outcome SameFormat(const iRecordset& source, const iRecordset& destination) const = 0;
};
