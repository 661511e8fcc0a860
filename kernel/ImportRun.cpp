#include "kernel/ImportRun.h"
#include "kernel/ImportFolder.h"
#include "kernel/SoundImport.h"
#include "kernel/Station.h"
#include "kernel/StationDatabases.h"
#include "kernelapi/KernelError.h"
#include <QFile>
#include <QFileInfo>

ImportRun::ImportRun(Request request, QObject* parent) : QObject(parent), m_request(std::move(request))
{
    m_thread = std::thread([this] {
        Outcome outcome = Work();
        // Runs on the thread of this object; dropped when the object is gone first.
        QMetaObject::invokeMethod(this, [this, outcome] { Q_EMIT Finished(outcome); }, Qt::QueuedConnection);
    });
}

ImportRun::~ImportRun()
{
    m_stop = true;
    if (m_thread.joinable())
        m_thread.join();
}

ImportRun::Outcome ImportRun::Work() const
{
    Outcome outcome;
    outcome.family = m_request.family;
    try {
        ImportFolder folder(m_request.folder, [now = m_request.now] { return now; });
        const QStringList ready = folder.Ready();
        outcome.waiting = folder.Waiting();
        if (ready.isEmpty())
            return outcome;
        const Station station(m_request.station);
        SoundImport import(StationDatabases::Open(station).Kernel, m_request.soundFolder, m_request.family);
        outcome.family = import.Family();
        outcome.familyMade = import.EnsureFamily();
        for (const QString& path : ready) {
            if (m_stop)
                break;
            Take(import, folder, path, outcome);
        }
    } catch (const KernelError& e) {
        outcome.error = e.Description();
    } catch (const std::exception& e) {
        outcome.error = QString::fromLocal8Bit(e.what());
    }
    return outcome;
}

void ImportRun::Take(SoundImport& import, ImportFolder& folder, const QString& path, Outcome& outcome) const
{
    const QString name = QFileInfo(path).fileName();
    try {
        outcome.ids << import.ImportFile(path);
    } catch (const SoundImport::Refusal& e) {
        try {
            folder.MoveToRefused(path, e.Description());
            outcome.refused.push_back({name, e.Description()});
        } catch (const KernelError& moving) {
            outcome.kept.push_back({name, QStringLiteral("%1; %2").arg(e.Description(), moving.Description())});
        }
        return;
    } catch (const KernelError& e) {
        outcome.kept.push_back({name, e.Description()});
        return;
    }
    try {
        folder.MoveToDone(path);
    } catch (const KernelError& e) {
        // The cart has its own copy; a file left in the folder would come in a second time.
        if (!QFile::remove(path))
            outcome.kept.push_back({name, QStringLiteral("Imported as %1, but %2").arg(outcome.ids.last(), e.Description())});
    }
}
