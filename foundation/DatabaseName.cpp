#include "foundation/DatabaseName.h"
#include "foundation/Globals.h"

void SetDatabaseName(QString& databaseName)
{
    databaseName.prepend(Globals::TheStation().DatabasePath);
}
