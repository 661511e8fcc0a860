// The kernel root's station services: Import, Refresh and Shout.
#include "foundation/db/Database.h"
#include "kernel/CartWorld.h"
#include "kernel/ConfigStore.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/Families.h"
#include "kernel/NoticeBoard.h"
#include "kernel/PlayLists.h"
#include "kernel/Station.h"
#include "kernel/StoreWatcher.h"
#include "kernel/Translator.h"
#include "kernel/Users.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iUser.h"
#include <QDir>
#include <QFileInfo>

namespace {
const QString Object = QStringLiteral("CKernel");
const QString DefaultImportFamily = QStringLiteral("IMP");
}

QString EmbeddedKernel::ImportDirectory() const
{
    const QString setting = m_shared->Value(QStringLiteral("ImportDir")).toString().trimmed();
    const QString folder = setting.isEmpty() ? QStringLiteral("import") : setting;
    return QDir(m_station->Folder().Root()).absoluteFilePath(folder);
}

QString EmbeddedKernel::ImportFamily() const
{
    const QString family = m_shared->Value(QStringLiteral("ImportFamily")).toString().trimmed();
    if (!family.isEmpty())
        return family;
    const QString temporary = m_shared->Value(QStringLiteral("FamEspTmp")).toString().trimmed().left(3);
    return temporary.isEmpty() ? DefaultImportFamily : temporary;
}

// A run already under way scans again when it ends, so a file dropped meanwhile is not missed.
void EmbeddedKernel::Import()
{
    if (m_import) {
        m_importAgain = true;
        return;
    }
    StartImport();
}

void EmbeddedKernel::StartImport()
{
    ImportRun::Request request;
    request.station = m_station->Folder();
    request.folder = ImportDirectory();
    request.family = ImportFamily();
    request.soundFolder = m_cartWorld->SoundFolder();
    request.now = m_importClock();
    m_importAgain = false;
    m_import = std::make_unique<ImportRun>(request);
    connect(m_import.get(), &ImportRun::Finished, this, &EmbeddedKernel::ImportDone);
}

void EmbeddedKernel::ImportDone(const ImportRun::Outcome& outcome)
{
    m_import.release()->deleteLater(); // this runs inside the run's own signal
    ReportImport(outcome);
    if (outcome.familyMade)
        m_families->Refresh();
    if (!outcome.ids.isEmpty())
        m_cartWorld->FamilyRewritten(outcome.family);
    Q_EMIT ImportFinished(int(outcome.ids.size()), int(outcome.refused.size()));
    if (m_importAgain)
        StartImport();
}

void EmbeddedKernel::ReportImport(const ImportRun::Outcome& outcome) const
{
    const QString procedure = QStringLiteral("Import");
    if (!outcome.error.isEmpty()) {
        m_log.Error(Object, procedure, outcome.error);
        return;
    }
    for (const ImportRun::Refused& refused : outcome.refused)
        m_log.Error(Object, procedure, QStringLiteral("%1 refused: %2").arg(refused.name, refused.reason));
    for (const ImportRun::Refused& kept : outcome.kept)
        m_log.Error(Object, procedure, QStringLiteral("%1 left for the next import: %2").arg(kept.name, kept.reason));
    m_log.Ok(Object, procedure,
             QStringLiteral("Import from %1: %2 imported into %3%4, %5 refused, %6 left for the next import, %7 still being written")
                 .arg(QDir::toNativeSeparators(ImportDirectory()))
                 .arg(outcome.ids.size())
                 .arg(outcome.family)
                 .arg(outcome.ids.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(outcome.ids.join(QStringLiteral(", "))))
                 .arg(outcome.refused.size())
                 .arg(outcome.kept.size())
                 .arg(outcome.waiting.size()));
}

void EmbeddedKernel::Refresh()
{
    m_shared->Reload();
    m_stationStore->Reload();
    m_translator->Reload();
    m_families->RefreshAll();
    m_cartWorld->RecheckLiveCarts();
    m_playLists->Refresh();
    m_log.Ok(Object, QStringLiteral("Refresh"), QStringLiteral("Families, carts and playlists read again from the catalogue"));
}

// "STATION (USER)", or the station alone when nobody is logged in.
QString EmbeddedKernel::Sender() const
{
    const std::shared_ptr<iUser> user = m_users->CurrentUser();
    return user ? QStringLiteral("%1 (%2)").arg(StationID(), user->Name()) : StationID();
}

void EmbeddedKernel::Shout(const QString& text)
{
    const std::shared_ptr<iUser> user = m_users->CurrentUser();
    NoticeBoard::Notice notice{StationID(), user ? user->Name() : QString(), text.trimmed()};
    if (notice.text.isEmpty())
        notice.text = QStringLiteral("%1 calls every workstation").arg(Sender());
    m_notices->Post(notice);
    m_log.Ok(Object, QStringLiteral("Shout"), QStringLiteral("Notice sent: %1").arg(notice.text));
    m_watcher->Tick(); // this workstation hears its own notice at once
}

void EmbeddedKernel::CollectNotices()
{
    try {
        for (const NoticeBoard::Notice& notice : m_notices->Collect()) {
            const QString from = notice.user.isEmpty() ? notice.station : QStringLiteral("%1 (%2)").arg(notice.station, notice.user);
            Q_EMIT Shouted(from, notice.text);
        }
    } catch (const KernelError& e) {
        m_log.Error(Object, QStringLiteral("CollectNotices"), e.Description());
    }
}
