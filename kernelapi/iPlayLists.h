#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iPlayList;

// All playlists of the station, walked in order with Count and Item or looked up by ID.
// A failed call throws KernelError.
class iPlayLists : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iPlayLists() override = default;

    virtual int Count() const = 0;
    // The list at a place, 1 to Count; throws KernelError outside that range.
    virtual std::shared_ptr<iPlayList> Item(int index) const = 0;
    // The list of that ID; throws KernelError when there is none.
    virtual std::shared_ptr<iPlayList> Item(const QString& id) const = 0;
    // Makes a new empty list. Raises ChangedCount.
    virtual std::shared_ptr<iPlayList> Add() = 0;
    // Makes a new list holding the entries of a stored macro. Raises ChangedCount.
    virtual std::shared_ptr<iPlayList> AddFromMacro(const QString& macroID) = 0;
    // Deletes a list. Raises ChangedCount.
    virtual void Remove(const QString& id) = 0;
    // The place of a list, 1 to Count; 0 when there is no list of that ID.
    virtual int IndexOf(const QString& id) const = 0;

Q_SIGNALS:
    // Lists were added or removed.
    void ChangedCount();
    // The state or name of the list of that ID changed.
    void ChangedPlayList(const QString& id);
};
