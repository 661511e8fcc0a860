#pragma once
#include <QObject>
#include <QString>
#include <memory>

class iDiscInfo;
class iObjectWithProperties;

// Holds the description of the disc in hand and the object selected in its tree, and rips.
// The client makes one with KernelFactory::CreateDiscInfoHandler for the disc work place. The
// rips block until they finish. A failed call throws KernelError.
class iDiscInfoHandler : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iDiscInfoHandler() override = default;

    // The tree's selection moved to the object of that key; it becomes SelectedObject.
    // Raises ChangedSelection.
    virtual void SelectedObjectChanged(const QString& key) = 0;
    // The description of the disc.
    virtual std::shared_ptr<iDiscInfo> DiscInfo() const = 0;
    // Computes the sections of every track from its sound.
    virtual void GrabSections() = 0;
    // The object selected; null when nothing is.
    virtual std::shared_ptr<iObjectWithProperties> SelectedObject() const = 0;
    // Rips the whole disc into the rip folder.
    virtual void RipDisc() = 0;
    // Rips the selected track, or the track of the selected section.
    virtual void RipTrack() = 0;
    // Rips the selected section.
    virtual void RipSection() = 0;

Q_SIGNALS:
    // SelectedObject changed.
    void ChangedSelection();
};
