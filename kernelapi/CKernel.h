#pragma once
#include <QObject>
#include <QString>
#include <QVariant>
#include <memory>

class iFiles;
class iChannels;
class iStation;
class iFamilies;
class iUsers;
class iCdRoms;
class iApplication;
class iMacro;
class iTranslator;
class iRecordset;
class iCarts;
class iPlayLists;
class iDataService;
class iCart;

// The root of the kernel. Every operation that hands out an object returns the same live
// object on each call. A failed call throws KernelError.
class CKernel : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~CKernel() override = default;

    struct FilledCart
    {
        std::shared_ptr<iCart> cart;
        bool ok = false;
    };

    virtual std::shared_ptr<iFiles> Files() = 0;
    virtual std::shared_ptr<iChannels> Channels() = 0;
    virtual std::shared_ptr<iStation> Station() = 0;
    virtual std::shared_ptr<iFamilies> Families() = 0;
    virtual std::shared_ptr<iUsers> Users() = 0;
    virtual std::shared_ptr<iCdRoms> CdRoms() = 0;
    virtual std::shared_ptr<iApplication> Application() = 0;
    virtual std::shared_ptr<iMacro> MacroByID(const QString& macroID) = 0;
    // The station's identifier as the kernel knows it.
    virtual QString StationID() const = 0;
    virtual std::shared_ptr<iTranslator> Translator() = 0;

    // Shared store, per installation. An absent key reads as an empty string.
    virtual QVariant Config(const QString& key) const = 0;
    virtual void SetConfig(const QString& key, const QVariant& value) = 0;
    // Station store, per workstation. The result of a write tells whether it was stored.
    virtual QVariant StationConfig(const QString& key) const = 0;
    virtual bool SetStationConfig(const QString& key, const QVariant& value) = 0;

    // The configuration editor changed a row of a configuration table.
    virtual void ConfigRecordChanged(const QVariant& recordData) = 0;
    // The editable recordset of a configuration table of the kernel's database.
    virtual std::unique_ptr<iRecordset> OpenConfigTable(const QString& table, const QString& keyField) = 0;
    // Runs a statement on the kernel's connection; a selection gives its recordset, any
    // other statement gives null. SQL is written in the catalogue dialect.
    virtual std::unique_ptr<iRecordset> Execute(const QString& sql, int options = 0) = 0;

    virtual QString Version() const = 0;
    // Logs in the user configured for this station, if any, and raises CurrentUserChanged.
    virtual void AutomaticLogin() = 0;

    virtual std::shared_ptr<iCarts> Carts() = 0;
    virtual std::shared_ptr<iPlayLists> PlayLists() = 0;
    virtual std::shared_ptr<iDataService> DataService() = 0;
    // Turns text dropped from the desktop into a cart.
    virtual FilledCart FillCartFromText(const std::shared_ptr<iCart>& cart, const QString& text) = 0;
    // Takes the audio files waiting in the station's import folder in as sound carts. Returns
    // at once; the work goes on in the background and ends with ImportFinished.
    virtual void Import() = 0;
    // Reloads families, carts, playlists and the configuration from the catalogue and raises
    // their change events, so that every screen shows the catalogue as it is.
    virtual void Refresh() = 0;
    // Sends a notice to every workstation of the station (this one too), which raise
    // Shouted. An empty text sends a notice naming this workstation and its user.
    virtual void Shout(const QString& text) = 0;

Q_SIGNALS:
    // A notice shouted by a workstation of the station: who sent it, and what it says.
    void Shouted(const QString& from, const QString& text);
    // An Import has ended: how many files came in, how many were refused.
    void ImportFinished(int imported, int refused);
};
