#pragma once
#include <QString>
#include <initializer_list>

class Database;

// A PostgreSQL catalogue for tests: KORVANE_TEST_POSTGRES names a database of a server, and
// each test suite works in a schema of its own in it. Empty when no server is named.
QString TestServerLocation(const QString& schema);

// Creates the three catalogues' tables (when missing) and empties the named ones.
void ResetCatalogue(Database& db, std::initializer_list<const char*> tables);
