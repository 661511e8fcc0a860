#pragma once
#include <QString>
#include <functional>

class QWidget;

namespace Web {
using Factory = std::function<QWidget*(QWidget* parent)>;
// Registers the browser screen ("FrmBrowser") through the given register call.
void RegisterForms(const std::function<void(const QString&, Factory)>& registerFactory);
// Call before the application object exists: the page view needs shared GL contexts, and
// Chromium will not start its sandbox for the root
// user and would end the whole process when the page view is first made; as root only, the
// page view runs without the sandbox (QTWEBENGINE_DISABLE_SANDBOX), unless that is set already.
void PrepareProcess();
}
