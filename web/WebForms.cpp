#include "web/WebForms.h"
#include "web/FrmBrowser.h"
#include <QByteArray>
#include <QCoreApplication>
#include <unistd.h>

namespace Web {
void RegisterForms(const std::function<void(const QString&, Factory)>& registerFactory)
{
    registerFactory(QStringLiteral("FrmBrowser"), [](QWidget*) -> QWidget* { return new FrmBrowser; });
}

void PrepareProcess()
{
    // The page view draws through contexts shared with the rest of the program.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    if (geteuid() == 0 && qEnvironmentVariableIsEmpty("QTWEBENGINE_DISABLE_SANDBOX"))
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}
}
