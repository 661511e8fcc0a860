#pragma once
#include <QString>
#include <memory>
#include <vector>

class Database;

// The notices that workstations shout to each other, as rows of the kernel's table Notice:
// one workstation posts, every kernel of the station (the poster's too) collects what is new
// at its watcher's next tick. Each board starts after the notices that were there when it was
// made, so a workstation that starts late is not shown old news. A station made before
// notices existed gets the table on first use. Rows older than a day are cleared as new ones
// are posted.
class NoticeBoard
{
public:
    struct Notice
    {
        QString station;
        QString user;
        QString text;
    };

    explicit NoticeBoard(std::shared_ptr<Database> db);

    void Post(const Notice& notice);
    // The notices posted since the last collection, oldest first.
    std::vector<Notice> Collect();

private:
    bool Ready();
    qint64 LastID();

    std::shared_ptr<Database> m_db;
    qint64 m_seen = 0;
    bool m_ready = false; // the table exists
};
