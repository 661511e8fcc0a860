#pragma once
#include <QObject>
#include <QString>
#include <memory>

class CdRom;
class iObjectWithProperties;

// The description of the disc in one drive: a tree of the disc, its tracks and their
// sections, each with its properties, kept in the disc catalogue. A failed call throws
// KernelError.
class iDiscInfo : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iDiscInfo() override = default;

    // Reads the disc in that drive. Raises TracksChanged and PropertiesChanged.
    virtual void SetCdRom(const std::shared_ptr<CdRom>& drive) = 0;
    // Loads the stored description of the disc. Raises PropertiesChanged.
    virtual void Load() = 0;
    // Stores the description in the disc catalogue.
    virtual void Save() = 0;
    // Opens the description for change.
    virtual void Edit() = 0;
    // Deletes the stored description.
    virtual void Delete() = 0;
    // Takes the table of tracks from the disc. Raises TracksChanged.
    virtual void GrabTracks() = 0;
    // Fills the description from the remote catalogue; false when it has nothing or cannot
    // be reached.
    virtual bool RetrieveFromInternet() = 0;
    // The disc as the root of the tree; null while no disc has been read.
    virtual std::shared_ptr<iObjectWithProperties> Disc() const = 0;
    // The disc, track or section whose Key this is; null when there is none.
    virtual std::shared_ptr<iObjectWithProperties> ObjectByKey(const QString& key) const = 0;

Q_SIGNALS:
    // Properties of the disc changed.
    void PropertiesChanged();
    // Tracks or sections were added or removed.
    void TracksChanged();
};
