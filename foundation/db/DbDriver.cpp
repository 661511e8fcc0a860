#include "foundation/db/DbDriver.h"
#include "foundation/db/PostgresDriver.h"
#include "foundation/db/PostgresLocation.h"
#include "foundation/db/SqliteDriver.h"

std::unique_ptr<DbDriver> DbDriver::For(const QString& location)
{
    if (PostgresLocation::Names(location))
        return std::make_unique<PostgresDriver>(PostgresLocation::Parse(location));
    return std::make_unique<SqliteDriver>(location);
}
