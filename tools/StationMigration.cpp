#include "tools/StationMigration.h"
#include "foundation/Ini.h"
#include "foundation/db/Database.h"
#include "foundation/db/PostgresLocation.h"
#include "foundation/db/SqlDialect.h"
#include "foundation/db/TableInfo.h"
#include "kernel/Station.h"
#include "kernel/StationDatabases.h"
#include "kernelapi/KernelError.h"
#include "tools/ServerCatalogue.h"
#include "tools/StationBuilder.h"
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {
// A value of the SQLite file as the server's column takes it: SQLite keeps booleans as
// numbers and dates as text.
QVariant ForColumn(const QVariant& value, iRecordset::FieldType kind)
{
    using Type = iRecordset::FieldType;
    if (value.isNull())
        return value;
    switch (kind) {
    case Type::Boolean:
        return value.toBool();
    case Type::DateTime:
        return value.toDateTime();
    case Type::Integer:
        return value.toLongLong();
    case Type::Real:
        return value.toDouble();
    case Type::Text:
        return value.toString();
    case Type::Other:
        break;
    }
    return value;
}

QStringList SqliteTables(Database& db)
{
    QStringList tables;
    QSqlQuery query = db.QueryNative(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'"));
    while (query.next())
        tables << query.value(0).toString();
    return tables;
}
}

StationMigration::StationMigration(const QString& dir, const QString& server, const QString& workstation)
    : m_dir(dir), m_server(server), m_workstation(workstation)
{
}

QList<StationMigration::TableCount> StationMigration::Migrate()
{
    StationBuilder::CheckDatabase(m_server, m_workstation);
    if (!PostgresLocation::Names(m_server))
        throw KernelError(QStringLiteral("--to takes a postgresql:// URI, not '%1'").arg(m_server));
    const QString folder = RefuseUnmovable();
    const ServerCatalogue catalogue(m_server);
    QList<TableCount> counts;
    try {
        counts << CopyDatabase(folder, StationDatabases::SoundFile, CatalogueSchema::Catalogue::Sound)
               << CopyDatabase(folder, StationDatabases::UserFile, CatalogueSchema::Catalogue::User)
               << CopyDatabase(folder, StationDatabases::KernelFile, CatalogueSchema::Catalogue::Kernel);
        catalogue.Analyze();
        const QString workstation = m_workstation.isEmpty() ? m_server : m_workstation;
        if (!m_workstation.isEmpty())
            catalogue.GrantRows(PostgresLocation::Parse(workstation).user);
        if (!WriteIni(QStringLiteral("Data"), QStringLiteral("Path"), workstation, StationFolder(m_dir).KernelIni()))
            throw KernelError(QStringLiteral("Cannot write the server into '%1'").arg(StationFolder(m_dir).KernelIni()));
    } catch (...) {
        try {
            catalogue.Drop();
        } catch (const KernelError&) {
            // The server went away: the first error says so.
        }
        throw;
    }
    return counts;
}

QString StationMigration::RefuseUnmovable() const
{
    const StationFolder folder(m_dir);
    if (!folder.IsStation())
        throw KernelError(QStringLiteral("'%1' is not a station (no station.ini)").arg(m_dir));
    const Station station(folder);
    if (station.OnServer())
        throw KernelError(QStringLiteral("The station in '%1' is already on a server (%2)").arg(m_dir, station.DatabasePath()));
    for (const char* file : {StationDatabases::SoundFile, StationDatabases::UserFile, StationDatabases::KernelFile}) {
        if (!QFileInfo(station.DatabasePath() + QLatin1String(file)).isFile())
            throw KernelError(QStringLiteral("'%1' is missing").arg(station.DatabasePath() + QLatin1String(file)));
    }
    if (ServerCatalogue(m_server).Exists())
        throw KernelError(QStringLiteral("The server already holds a station's schemas (%1); nothing was changed")
                              .arg(ServerCatalogue::SchemaOf(m_server, StationDatabases::SoundFile)));
    return station.DatabasePath();
}

QList<StationMigration::TableCount> StationMigration::CopyDatabase(const QString& folder, const char* file,
                                                                   CatalogueSchema::Catalogue catalogue)
{
    const auto from = Database::Open(folder + QLatin1String(file));
    const auto to = Database::Open(m_server + QLatin1String(file), Database::OpenMode::Create);
    CatalogueSchema::Create(*to, catalogue);
    const QStringList declared = CatalogueSchema::TableNames(catalogue);
    for (const QString& table : SqliteTables(*from)) {
        if (!declared.contains(table, Qt::CaseInsensitive))
            m_leftOut << QLatin1String(file) + u'/' + table;
    }
    QList<TableCount> counts;
    to->Transaction([&] {
        counts.clear();
        for (const QString& table : declared) {
            if (from->HasTable(table))
                counts << TableCount{QLatin1String(file) + u'/' + table, CopyTable(*from, *to, table)};
        }
    });
    for (const TableCount& count : counts) {
        const QString table = count.table.section(u'/', 1);
        const int stored = CountOf(*to, table);
        if (stored != count.rows || CountOf(*from, table) != count.rows)
            throw KernelError(QStringLiteral("%1: %2 rows in the file but %3 on the server").arg(count.table).arg(count.rows).arg(stored));
    }
    return counts;
}

int StationMigration::CopyTable(Database& from, Database& to, const QString& table)
{
    const TableInfo& target = to.Table(table);
    QSqlQuery rows = from.Query(QStringLiteral("SELECT * FROM [%1]").arg(table));
    const QSqlRecord record = rows.record();
    QStringList columns, marks;
    QList<int> sources;
    QList<iRecordset::FieldType> kinds;
    for (int i = 0; i < record.count(); ++i) {
        const int field = target.IndexOf(record.fieldName(i));
        if (field < 0)
            throw KernelError(QStringLiteral("%1.%2 has no column on the server").arg(table, record.fieldName(i)));
        columns << to.Dialect().QuoteIdentifier(target.fields[field].name);
        marks << QStringLiteral("?");
        sources << i;
        kinds << target.fields[field].kind;
    }
    QSqlQuery insert(to.Connection());
    if (!insert.prepare(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                            .arg(to.Dialect().QuoteIdentifier(table), columns.join(u','), marks.join(u','))))
        throw KernelError(QStringLiteral("%1: %2").arg(table, insert.lastError().text()));
    int copied = 0;
    while (rows.next()) {
        for (int i = 0; i < sources.size(); ++i)
            insert.bindValue(i, ForColumn(rows.value(sources[i]), kinds[i]));
        if (!insert.exec())
            throw KernelError(QStringLiteral("%1, row %2: %3").arg(table).arg(copied + 1).arg(insert.lastError().text().trimmed()));
        ++copied;
    }
    RestartIdentities(to, table);
    return copied;
}

// Identity columns numbered by the engine go on after the highest copied number.
void StationMigration::RestartIdentities(Database& to, const QString& table)
{
    const QString name = to.Dialect().QuoteIdentifier(table);
    QStringList columns;
    QSqlQuery identities = to.QueryNative(
        QStringLiteral("SELECT attname FROM pg_attribute WHERE attrelid = to_regclass(?) AND attidentity <> ''"), {name});
    while (identities.next())
        columns << identities.value(0).toString();
    identities.finish();
    for (const QString& column : columns) {
        to.QueryNative(QStringLiteral("SELECT setval(pg_get_serial_sequence(?, ?), COALESCE(MAX(%1), 0) + 1, false) FROM %2")
                           .arg(to.Dialect().QuoteIdentifier(column), name),
                       {name, column});
    }
}

int StationMigration::CountOf(Database& db, const QString& table)
{
    QSqlQuery query = db.Query(QStringLiteral("SELECT COUNT(*) FROM [%1]").arg(table));
    return query.next() ? query.value(0).toInt() : -1;
}
