#include "tools/ServerCatalogue.h"
#include "foundation/db/Database.h"
#include "foundation/db/PostgresLocation.h"
#include "kernel/StationDatabases.h"
#include <QSqlQuery>

namespace {
QString Quoted(const QString& name)
{
    QString quoted = name;
    quoted.replace(u'"', QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}
}

ServerCatalogue::ServerCatalogue(const QString& station) : m_station(station)
{
    PostgresLocation::Parse(station); // refuses a malformed URI before anything is done
}

QStringList ServerCatalogue::Files()
{
    return {QLatin1String(StationDatabases::SoundFile), QLatin1String(StationDatabases::UserFile),
            QLatin1String(StationDatabases::KernelFile)};
}

QString ServerCatalogue::SchemaOf(const QString& station, const QString& file)
{
    return PostgresLocation::Parse(station + file).schema;
}

QStringList ServerCatalogue::Schemas() const
{
    QStringList schemas;
    for (const QString& file : Files())
        schemas << SchemaOf(m_station, file);
    return schemas;
}

QString ServerCatalogue::ServerDatabase() const
{
    return PostgresLocation::WithSchema(m_station, QStringLiteral("public"));
}

bool ServerCatalogue::Exists() const
{
    const auto db = Database::Open(ServerDatabase());
    for (const QString& schema : Schemas()) {
        if (db->QueryNative(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = ?"), {schema}).next())
            return true;
    }
    return false;
}

void ServerCatalogue::Drop() const
{
    const auto db = Database::Open(ServerDatabase());
    for (const QString& schema : Schemas())
        db->ExecuteNative(QStringLiteral("DROP SCHEMA IF EXISTS %1 CASCADE").arg(Quoted(schema)));
}

void ServerCatalogue::Analyze() const
{
    const auto db = Database::Open(ServerDatabase());
    for (const QString& schema : Schemas()) {
        QSqlQuery tables = db->QueryNative(QStringLiteral("SELECT tablename FROM pg_tables WHERE schemaname = ?"), {schema});
        while (tables.next())
            db->ExecuteNative(QStringLiteral("ANALYZE %1.%2").arg(Quoted(schema), Quoted(tables.value(0).toString())));
    }
}

void ServerCatalogue::GrantRows(const QString& role) const
{
    const auto db = Database::Open(ServerDatabase());
    const QString grantee = Quoted(role);
    db->Transaction([&] {
        for (const QString& schema : Schemas()) {
            const QString name = Quoted(schema);
            for (const char* grant : {"GRANT USAGE ON SCHEMA %1 TO %2",
                                      "GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA %1 TO %2",
                                      "GRANT USAGE, SELECT ON ALL SEQUENCES IN SCHEMA %1 TO %2",
                                      "ALTER DEFAULT PRIVILEGES IN SCHEMA %1 GRANT SELECT, INSERT, UPDATE, DELETE ON TABLES TO %2",
                                      "ALTER DEFAULT PRIVILEGES IN SCHEMA %1 GRANT USAGE, SELECT ON SEQUENCES TO %2"})
                db->ExecuteNative(QString::fromLatin1(grant).arg(name, grantee));
        }
    });
}
