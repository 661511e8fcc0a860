#pragma once
#include "kernel/StationFolder.h"
#include <QDateTime>
#include <QObject>
#include <QStringList>
#include <QVector>
#include <atomic>
#include <thread>

class ImportFolder;
class SoundImport;

// One scan of the import folder, run on a thread of its own so that decoding never holds the
// UI thread. The thread opens the station's databases on a connection of its own, takes every
// file that is ready (ImportFolder) into the catalogue (SoundImport), moves it to done/ or, when
// the file itself cannot come in, to refused/ with its reason. A file that failed for another
// cause (the catalogue or the sound folder) stays where it is for the next scan. Finished is
// raised once, on the thread that made the run, with what happened; the run touches no kernel
// object, so the kernel raises its own events from the outcome.
class ImportRun : public QObject
{
    Q_OBJECT
public:
    struct Request
    {
        StationFolder station{QString()};
        QString folder;     // the import folder
        QString family;     // the family the carts go to
        QString soundFolder;
        QDateTime now;      // the time against which files count as still being written
    };
    struct Refused
    {
        QString name;
        QString reason;
    };
    struct Outcome
    {
        QString family;
        bool familyMade = false;
        QStringList ids;            // the carts made
        QVector<Refused> refused;   // moved to refused/
        QVector<Refused> kept;      // failed for a cause outside the file; left in place
        QStringList waiting;        // still being written, left for the next scan
        QString error;              // the scan itself failed; nothing was taken
    };

    explicit ImportRun(Request request, QObject* parent = nullptr);
    // Stops after the file in hand and waits for it.
    ~ImportRun() override;
    ImportRun(const ImportRun&) = delete;
    ImportRun& operator=(const ImportRun&) = delete;

Q_SIGNALS:
    void Finished(const ImportRun::Outcome& outcome);

private:
    Outcome Work() const;
    void Take(SoundImport& import, ImportFolder& folder, const QString& path, Outcome& outcome) const;

    Request m_request;
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};
