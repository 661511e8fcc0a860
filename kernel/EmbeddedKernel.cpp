#include "kernel/EmbeddedKernel.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "kernel/Application.h"
#include "kernel/CartWorld.h"
#include "kernel/CartID.h"
#include "kernel/Carts.h"
#include "kernel/Families.h"
#include "kernel/PlayLists.h"
#include "kernel/ConfigStore.h"
#include "kernel/Files.h"
#include "kernel/NoticeBoard.h"
#include "kernel/Station.h"
#include "kernel/StationDatabases.h"
#include "kernel/StoreWatcher.h"
#include "kernel/Translator.h"
#include "kernel/Users.h"
#include "kernel/audio/Channels.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iUser.h"
#include "kernelapi/iUsers.h"
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

namespace {
const QString Object = QStringLiteral("CKernel");

bool IsSelection(const QString& sql)
{
    static const QRegularExpression selection(QStringLiteral("^\\s*SELECT\\b"),
                                              QRegularExpression::CaseInsensitiveOption);
    return selection.match(sql).hasMatch();
}

QString VersionNumber()
{
    return QStringLiteral("%1.%2.%3").arg(KORVANE_VERSION_MAJOR).arg(KORVANE_VERSION_MINOR).arg(KORVANE_VERSION_PATCH);
}
}

std::shared_ptr<EmbeddedKernel> EmbeddedKernel::Open(const StationFolder& folder, std::shared_ptr<CLogger> logger)
{
    KernelLog log(std::move(logger));
    try {
        if (!folder.IsStation())
            throw KernelError(QStringLiteral("'%1' is not a station: station.ini is missing").arg(folder.Root()));
        auto kernel = std::shared_ptr<EmbeddedKernel>(new EmbeddedKernel(std::make_shared<::Station>(folder), log));
        log.Ok(Object, QStringLiteral("Open"), QStringLiteral("Station '%1' opened from %2").arg(kernel->StationID(), folder.Root()));
        return kernel;
    } catch (const KernelError& e) {
        log.Error(Object, QStringLiteral("Open"), e.Description());
        throw;
    }
}

EmbeddedKernel::EmbeddedKernel(std::shared_ptr<::Station> station, KernelLog log)
    : m_log(std::move(log)), m_station(std::move(station))
{
    StationDatabases databases = StationDatabases::Open(*m_station);
    m_db = databases.Kernel;
    m_shared = ConfigStore::Shared(m_db);
    m_stationStore = ConfigStore::ForStation(m_db, m_station->ID());
    m_translator = std::make_shared<::Translator>(m_db, m_shared, m_log);
    m_users = std::make_shared<::Users>(databases.Users, m_translator, m_log);
    m_application = std::make_shared<::Application>(*m_db);
    m_files = std::make_shared<::Files>();
    m_cartWorld = std::make_shared<CartWorld>(m_db, m_shared, m_stationStore, m_station->Folder(), m_users, m_log);
    m_carts = std::make_shared<::Carts>(m_cartWorld);
    m_families = std::make_shared<::Families>(m_cartWorld);
    m_cartWorld->SetFamilies(m_families);
    m_watcher = std::make_unique<StoreWatcher>(m_db, m_families);
    m_playLists = std::make_shared<::PlayLists>(m_cartWorld);
    m_notices = std::make_unique<NoticeBoard>(m_db);
    connect(m_watcher.get(), &StoreWatcher::StoreChanged, this, &EmbeddedKernel::CollectNotices);
}

EmbeddedKernel::~EmbeddedKernel()
{
    m_import.reset(); // stops after the file in hand
    m_cartWorld->Close();
    if (m_channels)
        m_channels->ForgetKernel();
}

std::shared_ptr<iChannels> EmbeddedKernel::Channels()
{
    if (!m_channels) {
        m_channels = std::make_shared<::Channels>(AudioSettings::Read(m_station->Folder().KernelIni(), m_log), m_log,
                                                  [this](const QString& cartID) { return MacroByID(cartID); });
        m_channels->SetCatalogue(m_cartWorld);
    }
    return m_channels;
}

std::shared_ptr<iFiles> EmbeddedKernel::Files() { return m_files; }
std::shared_ptr<iCarts> EmbeddedKernel::Carts() { return m_carts; }
std::shared_ptr<iFamilies> EmbeddedKernel::Families() { return m_families; }
std::shared_ptr<iPlayLists> EmbeddedKernel::PlayLists() { return m_playLists; }
std::shared_ptr<iMacro> EmbeddedKernel::MacroByID(const QString& macroID) { return m_carts->MacroByID(macroID); }
std::shared_ptr<iStation> EmbeddedKernel::Station() { return m_station; }
std::shared_ptr<iUsers> EmbeddedKernel::Users() { return m_users; }
std::shared_ptr<iApplication> EmbeddedKernel::Application() { return m_application; }
std::shared_ptr<iTranslator> EmbeddedKernel::Translator() { return m_translator; }
QString EmbeddedKernel::StationID() const { return m_station->ID(); }

QVariant EmbeddedKernel::Config(const QString& key) const { return m_shared->Value(key); }
void EmbeddedKernel::SetConfig(const QString& key, const QVariant& value) { m_shared->SetValue(key, value); }
QVariant EmbeddedKernel::StationConfig(const QString& key) const { return m_stationStore->Value(key); }

bool EmbeddedKernel::SetStationConfig(const QString& key, const QVariant& value)
{
    try {
        m_stationStore->SetValue(key, value);
        return true;
    } catch (const KernelError& e) {
        m_log.Error(Object, QStringLiteral("SetStationConfig"), e.Description());
        return false;
    }
}

void EmbeddedKernel::ConfigRecordChanged(const QVariant&)
{
    m_shared->Reload();
    m_stationStore->Reload();
    m_translator->Reload();
}

std::unique_ptr<iRecordset> EmbeddedKernel::OpenConfigTable(const QString& table, const QString& keyField)
{
    return OpenRecordset(QStringLiteral("OpenConfigTable"), QStringLiteral("SELECT * FROM %1 ORDER BY %2").arg(table, keyField));
}

std::unique_ptr<iRecordset> EmbeddedKernel::Execute(const QString& sql, int)
{
    if (IsSelection(sql))
        return OpenRecordset(QStringLiteral("Execute"), sql);
    try {
        m_db->Execute(sql);
    } catch (const KernelError& e) {
        Fail(QStringLiteral("Execute"), sql, e.Description());
    }
    return nullptr;
}

std::unique_ptr<iRecordset> EmbeddedKernel::OpenRecordset(const QString& procedure, const QString& sql)
{
    try {
        return m_db->OpenRecordset(sql);
    } catch (const KernelError& e) {
        Fail(procedure, sql, e.Description());
    }
}

void EmbeddedKernel::Fail(const QString& procedure, const QString& sql, const QString& description)
{
    // The store's text names the statement as the engine ran it; the caller's own text is
    // added when it differs, so that the failing statement can be found in the program.
    const QString text = description.contains(sql) ? description : QStringLiteral("%1 (statement: %2)").arg(description, sql);
    m_log.Error(Object, procedure, text);
    throw KernelError(text);
}

QString EmbeddedKernel::Version() const
{
    return QStringLiteral("Korvane kernel ") + VersionNumber();
}

void EmbeddedKernel::AutomaticLogin()
{
    const QString user = m_stationStore->Value(QStringLiteral("AutoLoginUser")).toString().trimmed();
    if (!user.isEmpty())
        m_users->LoginWithoutPassword(user);
}

// Dropped text names a cart by its ID (the first word: "JIN0001 Morning jingle" is JIN0001),
// or an audio file by its path or file URL, which the given cart takes as its sound without
// touching the catalogue. Anything else fills nothing.
CKernel::FilledCart EmbeddedKernel::FillCartFromText(const std::shared_ptr<iCart>& cart, const QString& text)
{
    const QString first = text.trimmed().section(QRegularExpression(QStringLiteral("\\s+")), 0, 0);
    if (CartID::IsValid(first) && Carts()->Exists(CartID::Normalized(first)))
        return {Carts()->Cart(CartID::Normalized(first)), true};
    const QString line = text.trimmed().section(QLatin1Char('\n'), 0, 0).trimmed();
    const QString path = line.startsWith(QLatin1String("file:")) ? QUrl(line).toLocalFile() : line;
    if (cart && !path.isEmpty() && QFileInfo(path).isFile()) {
        cart->SetType(CartType::Sound);
        if (cart->Description().isEmpty())
            cart->SetDescription(QFileInfo(path).completeBaseName());
        cart->Sound()->SetFileName(QFileInfo(path).absoluteFilePath());
        return {cart, true};
    }
    return {cart, false};
}

// Parts of the kernel that later work provides.
std::shared_ptr<iCdRoms> EmbeddedKernel::CdRoms() { throw NotAvailable("CKernel.CdRoms"); }
std::shared_ptr<iDataService> EmbeddedKernel::DataService() { throw NotAvailable("CKernel.DataService"); }

