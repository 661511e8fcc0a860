#include "support/TestServer.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include <QUrl>
#include <QUrlQuery>

QString TestServerLocation(const QString& schema)
{
    const QString uri = qEnvironmentVariable("KORVANE_TEST_POSTGRES");
    if (uri.isEmpty())
        return {};
    QUrl url(uri);
    QUrlQuery query(url);
    query.removeAllQueryItems(QStringLiteral("schema"));
    query.addQueryItem(QStringLiteral("schema"), schema);
    url.setQuery(query);
    return url.toString();
}

void ResetCatalogue(Database& db, std::initializer_list<const char*> tables)
{
    CatalogueSchema::CreateSoundSchema(db);
    CatalogueSchema::CreateUserSchema(db);
    CatalogueSchema::CreateKernelSchema(db);
    for (const char* table : tables)
        db.Execute(QStringLiteral("DELETE FROM %1").arg(QLatin1String(table)));
}
