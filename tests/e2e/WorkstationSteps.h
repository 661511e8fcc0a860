#pragma once
#include <QString>

class QAbstractButton;
class QWidget;
class ScriptedDialogs;

// What a user does on the running workstation, as mouse and key events.
namespace WorkstationSteps {
// Installs scripted dialogs, records the process's end and runs Main as main() does.
// Returns the dialogs (owned by the dialogs seam).
ScriptedDialogs* Start(int& endedWith);
// The menu button of that caption, or null.
QAbstractButton* MenuButton(const QString& caption);
void Click(QAbstractButton* button);
// Logs in through the login screen by typing name and password.
void LogIn(const QString& name, const QString& password);
// The text of today's log of the station.
QString TodaysLog(const QString& stationDir);
}
