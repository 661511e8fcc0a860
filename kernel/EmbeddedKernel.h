#pragma once
#include "kernel/KernelLog.h"
#include "kernel/StationFolder.h"
#include "kernel/ImportRun.h"
#include "kernelapi/CKernel.h"
#include <functional>

class Application;
class Channels;
class Carts;
class CartWorld;
class ConfigStore;
class Families;
class PlayLists;
class Database;
class Files;
class Station;
class NoticeBoard;
class StoreWatcher;
class Translator;
class Users;

// The kernel root running inside the workstation's process, over one station folder.
class EmbeddedKernel : public CKernel
{
    Q_OBJECT
public:
    // Opens the station. Throws KernelError when the folder is not a station or one of its
    // databases cannot be used.
    static std::shared_ptr<EmbeddedKernel> Open(const StationFolder& folder, std::shared_ptr<CLogger> logger);
    ~EmbeddedKernel() override;

    // What notices other workstations' writes; its timer ticks once a second.
    StoreWatcher& Watcher() const { return *m_watcher; }
    // The carts' shared state, for channels that a test opens over this kernel.
    std::shared_ptr<CartWorld> World() const { return m_cartWorld; }
    // The clock against which Import tells files still being written; the system's by default.
    void SetImportClock(std::function<QDateTime()> clock) { m_importClock = std::move(clock); }
    // Whether an Import is under way.
    bool Importing() const { return m_import != nullptr; }
    // The import folder: the shared setting "ImportDir" (relative to the station when
    // relative), else <station>/import/.
    QString ImportDirectory() const;
    // The family imports go to: the shared setting "ImportFamily", else the temporary family
    // that "FamEspTmp" names, else IMP.
    QString ImportFamily() const;

    std::shared_ptr<iFiles> Files() override;
    std::shared_ptr<iChannels> Channels() override;
    std::shared_ptr<iStation> Station() override;
    std::shared_ptr<iFamilies> Families() override;
    std::shared_ptr<iUsers> Users() override;
    std::shared_ptr<iCdRoms> CdRoms() override;
    std::shared_ptr<iApplication> Application() override;
    std::shared_ptr<iMacro> MacroByID(const QString& macroID) override;
    QString StationID() const override;
    std::shared_ptr<iTranslator> Translator() override;

    QVariant Config(const QString& key) const override;
    void SetConfig(const QString& key, const QVariant& value) override;
    QVariant StationConfig(const QString& key) const override;
    bool SetStationConfig(const QString& key, const QVariant& value) override;

    void ConfigRecordChanged(const QVariant& recordData) override;
    std::unique_ptr<iRecordset> OpenConfigTable(const QString& table, const QString& keyField) override;
    std::unique_ptr<iRecordset> Execute(const QString& sql, int options = 0) override;

    QString Version() const override;
    void AutomaticLogin() override;

    std::shared_ptr<iCarts> Carts() override;
    std::shared_ptr<iPlayLists> PlayLists() override;
    std::shared_ptr<iDataService> DataService() override;
    FilledCart FillCartFromText(const std::shared_ptr<iCart>& cart, const QString& text) override;
    void Import() override;
    void Refresh() override;
    void Shout(const QString& text) override;

private:
    EmbeddedKernel(std::shared_ptr<::Station> station, KernelLog log);
    std::unique_ptr<iRecordset> OpenRecordset(const QString& procedure, const QString& sql);
    [[noreturn]] void Fail(const QString& procedure, const QString& sql, const QString& description);
    void StartImport();
    void ImportDone(const ImportRun::Outcome& outcome);
    void ReportImport(const ImportRun::Outcome& outcome) const;
    void CollectNotices();
    QString Sender() const;

    KernelLog m_log;
    std::shared_ptr<::Station> m_station;
    std::shared_ptr<Database> m_db;
    std::shared_ptr<ConfigStore> m_shared;
    std::shared_ptr<ConfigStore> m_stationStore;
    std::shared_ptr<::Translator> m_translator;
    std::shared_ptr<::Users> m_users;
    std::shared_ptr<::Application> m_application;
    std::shared_ptr<::Files> m_files;
    std::shared_ptr<::Channels> m_channels; // the audio engine starts on first use
    std::shared_ptr<CartWorld> m_cartWorld;
    std::shared_ptr<::Carts> m_carts;
    std::shared_ptr<::Families> m_families;
    std::unique_ptr<StoreWatcher> m_watcher;
    std::shared_ptr<::PlayLists> m_playLists;
    std::unique_ptr<NoticeBoard> m_notices;
    std::unique_ptr<ImportRun> m_import;
    bool m_importAgain = false; // Import was asked for while a run was under way
    std::function<QDateTime()> m_importClock = [] { return QDateTime::currentDateTime(); };
};
