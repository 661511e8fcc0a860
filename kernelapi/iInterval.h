#pragma once
#include <QObject>
#include <memory>

// A pair of positions, Begin and End, in the holder's unit: ms for sounds and selections,
// frames for discs. For a single point only Begin counts. KernelFactory::CreateInterval
// makes a free one.
class iInterval : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iInterval() override = default;

    // End minus Begin; negative while End stands before Begin.
    virtual qint32 Length() const = 0;
    virtual qint32 Begin() const = 0;
    virtual void SetBegin(qint32 begin) = 0;
    virtual qint32 End() const = 0;
    virtual void SetEnd(qint32 end) = 0;
    // Swaps the two positions if End stands before Begin, so that Length is not negative.
    virtual void Normalize() = 0;
    // A new, independent interval with the same positions.
    virtual std::shared_ptr<iInterval> Clone() const = 0;
};
