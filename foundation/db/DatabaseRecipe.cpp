#include "foundation/db/DatabaseRecipe.h"
#include "foundation/db/Database.h"

std::unique_ptr<Database> DatabaseRecipe::Open() const
{
    std::unique_ptr<Database> db = Database::Open(m_location);
    for (const auto& [location, alias] : m_attached)
        db->Attach(location, alias);
    return db;
}
