#pragma once
#include <QString>

// A data source's database name made absolute: the station's DatabasePath in front of it.
void SetDatabaseName(QString& databaseName);
