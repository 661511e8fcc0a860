#pragma once
#include <QString>
#include <memory>
#include <utility>
#include <vector>

class Database;

// What it takes to open another connection like an open Database: its location (with any
// password) and the databases attached to it, in order. A plain value: taken on the thread of
// the connection it describes and handed to another thread, whose Open makes a connection that
// belongs to that thread (Qt SQL connections may only be used by the thread that made them).
// Each opened Database has its own connection name and removes it when it is deleted, which
// must happen on the same thread.
class DatabaseRecipe
{
public:
    DatabaseRecipe(QString location, std::vector<std::pair<QString, QString>> attached)
        : m_location(std::move(location)), m_attached(std::move(attached))
    {
    }

    // Opens the location and attaches the same databases under the same aliases. Throws
    // KernelError as Database::Open and Database::Attach do.
    std::unique_ptr<Database> Open() const;

private:
    QString m_location;
    std::vector<std::pair<QString, QString>> m_attached; // location, alias
};
