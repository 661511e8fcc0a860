#pragma once
#include <QObject>
#include <memory>

class iInterval;

// What a selection holds.
enum class SelectionKind : qint32 {
    None = 0,
    Point = 1, // a single point: only Begin of the interval counts
    Range = 2,
};

// One selected point or range of a sound, in ms.
class iSelectionItem : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iSelectionItem() override = default;

    // The selected positions; for a point only Begin is meaningful.
    virtual std::shared_ptr<iInterval> Interval() const = 0;
    virtual SelectionKind Kind() const = 0;
};
