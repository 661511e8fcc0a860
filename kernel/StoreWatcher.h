#pragma once
#include <QObject>
#include <QString>
#include <QTimer>
#include <memory>

class Database;
class Families;

// Notices, once a second, what other workstations wrote to a shared catalogue, and raises it
// as the kernel's own events: a change of the family list as Families Changed, a change of a
// family's carts as that family's ChangedContents. A tick costs one query of the database's
// change stamp while nothing changed; only then are the family rows and the carts of the
// families already read compared with the store. The kernel's own writes are announced when
// they happen, so the comparison that follows them finds nothing new.
class StoreWatcher : public QObject
{
    Q_OBJECT
public:
    static constexpr int IntervalMs = 1000;

    StoreWatcher(std::shared_ptr<Database> db, std::shared_ptr<Families> families);

    // One look at the store; the timer calls it.
    void Tick();

Q_SIGNALS:
    // The store changed since the last tick, after families took up the change.
    void StoreChanged();

private:
    std::shared_ptr<Database> m_db;
    std::weak_ptr<Families> m_families;
    QString m_stamp;
    QTimer m_timer;
};
