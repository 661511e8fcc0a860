#pragma once
#include "kernel/StationFolder.h"
#include <QString>
#include <memory>

class Database;
class QTemporaryDir;

// PostgreSQL for tests. KORVANE_TEST_POSTGRES names a database of a server as a role that may
// make schemas in it; KORVANE_TEST_POSTGRES_WORKSTATION names the same database as a role
// that has no rights until a station grants it row rights. ./test.sh starts a private server
// and sets both; without them the server tests skip with NoTestServer.
QString TestServerUri();
QString TestServerWorkstationUri();
extern const char* const NoTestServer;

// A station's data path on the test server, of its owner role (or the workstation role): the
// station name is made from the running test's name, so every test has its own schemas and
// test cases may run at once. FreshServerStation drops the station's schemas first. Empty
// when there is no server.
QString ServerStation(const QString& uri = TestServerUri());
QString FreshServerStation();

// Creates the station's three catalogues on the server, with empty tables.
void CreateServerCatalogue(const QString& station);
// The station's kernel connection as the kernel opens it: Kernel.MDB with Sound.MDB and
// User.MDB attached, so that every table is reached unqualified.
std::unique_ptr<Database> OpenServerKernel(const QString& station);
// A workstation's station folder in dir, with its own station ID, whose data path is the
// station on the server.
StationFolder ServerStationFolder(const QTemporaryDir& dir, const QString& id, const QString& location);
