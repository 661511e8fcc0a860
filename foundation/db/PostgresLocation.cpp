#include "foundation/db/PostgresLocation.h"
#include "kernelapi/KernelError.h"
#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

namespace {
QString ClientOption(const QString& key, QString value)
{
    value.replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'"));
    return QStringLiteral("%1='%2'").arg(key, value);
}

[[noreturn]] void Malformed(const QString& location, const QString& why)
{
    QUrl shown(location);
    shown.setPassword(QString());
    throw KernelError(QStringLiteral("'%1' is not a usable PostgreSQL location: %2")
                          .arg(shown.isValid() ? shown.toString() : QStringLiteral("postgresql://..."), why));
}
}

QString PostgresLocation::WithSchema(const QString& uri, const QString& schema)
{
    QUrl url(uri.trimmed());
    QUrlQuery query(url);
    query.removeAllQueryItems(QStringLiteral("schema"));
    query.removeAllQueryItems(QStringLiteral("currentSchema"));
    query.addQueryItem(QStringLiteral("schema"), schema);
    url.setQuery(query);
    return url.toString();
}

bool PostgresLocation::Names(const QString& location)
{
    return location.startsWith(QLatin1String("postgresql://"), Qt::CaseInsensitive)
           || location.startsWith(QLatin1String("postgres://"), Qt::CaseInsensitive);
}

PostgresLocation PostgresLocation::Parse(const QString& location)
{
    static const QRegularExpression catalogueFile(QStringLiteral("(Sound|User|Kernel)\\.MDB$"),
                                                  QRegularExpression::CaseInsensitiveOption);
    QString uri = location.trimmed();
    const QRegularExpressionMatch file = catalogueFile.match(uri);
    if (file.hasMatch())
        uri.chop(file.capturedLength());
    const QUrl url(uri, QUrl::StrictMode);
    if (!url.isValid())
        Malformed(location, url.errorString());
    PostgresLocation parsed;
    parsed.host = url.host(QUrl::FullyDecoded);
    parsed.port = url.port(5432);
    parsed.user = url.userName(QUrl::FullyDecoded);
    parsed.password = url.password(QUrl::FullyDecoded);
    parsed.database = url.path(QUrl::FullyDecoded).mid(1);
    if (parsed.database.endsWith(u'/'))
        parsed.database.chop(1);
    bool schemaGiven = false;
    const auto items = QUrlQuery(url).queryItems(QUrl::FullyDecoded);
    for (const auto& [key, value] : items)
        schemaGiven = parsed.Apply(key, value, location) || schemaGiven;
    if (file.hasMatch())
        parsed.schema = (schemaGiven ? parsed.schema : QStringLiteral("korvane")) + u'_' + file.captured(1).toLower();
    if (parsed.database.isEmpty())
        Malformed(location, QStringLiteral("no database name"));
    if (parsed.schema.isEmpty())
        Malformed(location, QStringLiteral("empty schema name"));
    return parsed;
}

bool PostgresLocation::Apply(const QString& key, const QString& value, const QString& location)
{
    static const QRegularExpression optionName(QStringLiteral("^[a-z_]+$"));
    const QString name = key.toLower();
    const bool isSchema = name == QLatin1String("schema") || name == QLatin1String("currentschema");
    if (isSchema)
        schema = value;
    else if (name == QLatin1String("host"))
        host = value;
    else if (name == QLatin1String("port"))
        port = value.toInt();
    else if (name == QLatin1String("user"))
        user = value;
    else if (name == QLatin1String("password"))
        password = value;
    else if (name == QLatin1String("dbname"))
        database = value;
    else if (optionName.match(name).hasMatch())
        options << ClientOption(name, value);
    else
        Malformed(location, QStringLiteral("unknown parameter '%1'").arg(key));
    if (port <= 0 || port > 65535)
        Malformed(location, QStringLiteral("bad port"));
    return isSchema;
}

QString PostgresLocation::Display() const
{
    QString shown = QStringLiteral("postgresql://");
    if (!user.isEmpty())
        shown += user + u'@';
    shown += host + u':' + QString::number(port) + u'/' + database;
    return shown + QStringLiteral("?schema=") + schema;
}

bool PostgresLocation::SameDatabase(const PostgresLocation& other) const
{
    return host == other.host && port == other.port && database == other.database;
}
