#pragma once
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

class iInterval;

// What an object with properties is. Discs, tracks and sections form the disc tree; the
// property bags of carts, macro entries and playlist items are plain bags.
enum class ObjectKind : qint32 {
    PropertyBag = -1,
    Disc = 0,
    Track = 1,
    Section = 2,
};

// A named object holding named values. Properties come in two groups: the fixed ones, which
// the kernel fills (a track's length, a disc's ID), and the changeable ones, which the user
// and the client write (a section's "Ending", a cart's "Index", a pad's "SerializedPadColors").
// Disc objects also form a tree: a disc's children are its tracks, a track's its sections.
// A failed call throws KernelError.
class iObjectWithProperties : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iObjectWithProperties() override = default;

    enum class PropertyGroup { Static, Volatile };

    // Disc, track, section, or a plain bag.
    virtual ObjectKind Kind() const = 0;
    // The name shown for the object (a track's or a section's title); empty for a bag.
    virtual QString Name() const = 0;
    // Identifies the object inside its disc; the disc tree's nodes carry it. Empty for a bag.
    virtual QString Key() const = 0;

    // Names of one group, in the order the object keeps them.
    virtual QStringList PropertyNames(PropertyGroup group) const = 0;
    // Whether a property of that name exists in either group.
    virtual bool HasProperty(const QString& name) const = 0;
    // The value of a property of either group; a null QVariant when there is none.
    virtual QVariant Property(const QString& name) const = 0;
    // Adds or changes a changeable property; raises AddedProperty or ChangedProperty. Writing
    // the name of a fixed property throws KernelError.
    virtual void SetProperty(const QString& name, const QVariant& value) = 0;
    // Removes a changeable property and raises RemovedProperty; an absent name does nothing.
    virtual void RemoveProperty(const QString& name) = 0;

    // Children in order: the tracks of a disc, the sections of a track; none for others.
    virtual int ChildCount() const = 0;
    // Child by place, 1 to ChildCount; throws KernelError outside that range.
    virtual std::shared_ptr<iObjectWithProperties> Child(int index) const = 0;
    // False for a data track, which is listed but holds no sound; true for everything else.
    virtual bool IsAudio() const = 0;
    // A copy of the object's stretch in disc frames (75 a second): the whole disc, a track's
    // frames, a section's start and stop points. Null for a bag.
    virtual std::shared_ptr<iInterval> Interval() const = 0;
    // Moves a section's start and stop points and raises ChangedObject; throws KernelError
    // for other kinds and for points outside the section's track.
    virtual void SetInterval(qint32 begin, qint32 end) = 0;

Q_SIGNALS:
    void AddedProperty(const QString& name);
    void ChangedProperty(const QString& name);
    void RemovedProperty(const QString& name);
    // The object itself changed: its name, its stretch or its children.
    void ChangedObject();
    // While a rip reads this object: the frame it has reached, for progress markers.
    void RipPosition(qint32 frame);
    // The rip that reported RipPosition has finished or stopped.
    void RipEnded();
};
