#include "kernel/StoreWatcher.h"
#include "foundation/db/Database.h"
#include "kernel/Families.h"

StoreWatcher::StoreWatcher(std::shared_ptr<Database> db, std::shared_ptr<Families> families)
    : m_db(std::move(db)), m_families(families)
{
    m_stamp = m_db->ChangeStamp();
    m_timer.setInterval(IntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &StoreWatcher::Tick);
    m_timer.start();
}

void StoreWatcher::Tick()
{
    const std::shared_ptr<Families> families = m_families.lock();
    if (!families)
        return;
    // An engine that cannot tell its changes gives an empty stamp: then every tick looks.
    const QString stamp = m_db->ChangeStamp();
    if (!stamp.isEmpty() && stamp == m_stamp)
        return;
    m_stamp = stamp;
    families->Recheck();
    Q_EMIT StoreChanged();
}
