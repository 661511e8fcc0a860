#pragma once
#include <QString>

class Directe;
class TempStation;
class QAbstractButton;
class QPoint;
class QTreeView;
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
// Puts the station's audio on the Null device's virtual clock with no expiring warning, starts
// the workstation, logs in as the demo's administrator, opens the Live screen from the menu
// and runs its loader's tick. The scripted dialogs are handed back through dialogs when asked
// for.
Directe* OpenLive(TempStation& station, ScriptedDialogs** dialogs = nullptr);
// Clicks the family in the screen's family browser and waits for its carts.
void OpenFamily(Directe* live, const QString& familyID);
// The text of today's log of the station.
QString TodaysLog(const QString& stationDir);
// The ERROR lines of a log.
QStringList ErrorLines(const QString& log);
// Runs the Null device's clock (the station's kernel.ini set to the virtual clock), and lets
// the engine's events reach the screen.
void AdvanceMs(int ms);
// A press and a release on the button, then 30 ms of sound.
void Press(QWidget* button);
// The centre of a list row in the list's viewport, found by its ID.
QPoint RowCentre(QTreeView* list, const QString& id);
// Presses a row of the cart list and drags it onto the target (at its centre, or at the point
// of the target's pixels), the way a hand does: a first move out of the click distance, then
// moves over the target, and the release there.
void DragRowOnto(QTreeView* list, const QString& id, QWidget* target);
void DragRowOnto(QTreeView* list, const QString& id, QWidget* target, const QPoint& at);
}
