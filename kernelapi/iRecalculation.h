#pragma once
#include <QObject>
#include <QString>

// A recalculation running in the background: the lengths of carts measured again, one cart
// after another, while the caller's event loop keeps running. It moves on only while the
// holder keeps the object; dropping it ends the run as Stop does. Progress is raised after
// each slice of carts, Finished once at the end (after Stop too).
class iRecalculation : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iRecalculation() override = default;

    // Carts handled so far: measured and written, failed, or skipped.
    virtual int Done() const = 0;
    // Carts to handle.
    virtual int Total() const = 0;
    // The ID of the cart handled last; empty before the first.
    virtual QString CurrentCartID() const = 0;
    // Carts whose sound could not be measured; each has an ERROR line naming it.
    virtual int Failed() const = 0;
    // False once Finished was raised.
    virtual bool Running() const = 0;
    // Ends the run after the cart being measured: the carts finished stay written, the rest
    // is left untouched.
    virtual void Stop() = 0;

Q_SIGNALS:
    void Progress(int done, int total, const QString& cartID);
    void Finished(int failed);
};
