#include "web/WebForms.h"
#include "web/FrmBrowser.h"
#include <QByteArray>
#include <unistd.h>

namespace Web {
void RegisterForms(const std::function<void(const QString&, Factory)>& registerFactory)
{
    registerFactory(QStringLiteral("FrmBrowser"), [](QWidget*) -> QWidget* { return new FrmBrowser; });
}

void PrepareProcess()
{
    if (geteuid() == 0 && qEnvironmentVariableIsEmpty("QTWEBENGINE_DISABLE_SANDBOX"))
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}
}
