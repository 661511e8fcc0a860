#include "kernel/Application.h"
#include "foundation/db/Database.h"
#include <QSqlQuery>

Application::Application(Database& db, QObject* parent) : iApplication(parent)
{
    QSqlQuery query = db.Query(QStringLiteral("SELECT Name, Version, OpenText, ClosedText FROM Application"));
    if (!query.next())
        return;
    m_name = query.value(0).toString();
    m_version = query.value(1).toString();
    m_openText = query.value(2).toString();
    m_closedText = query.value(3).toString();
}
