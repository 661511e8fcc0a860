#pragma once
#include "foundation/ui/ScriptedDialogs.h"
#include "support/TempStation.h"
#include <QString>
#include <gtest/gtest.h>
#include <memory>

class IFMenu;
class InitForm;
class QPushButton;

// A demo station, scripted dialogs and a recorded process end: the workstation runs inside
// the test process as main runs it, and ends with the test as the program's end ends it.
class ShellFixture : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    // modMain::Main on the station; true when the workstation is running.
    bool Start();
    IFMenu* Menu() const;
    QPushButton* MenuButton(const QString& caption) const;
    void ClickMenu(const QString& caption);
    // Opens the login form from the menu and logs in; true when the menu came back logged in.
    bool Login(const QString& user, const QString& password);
    // The whole text of today's log file.
    QString LogText() const;
    // Replaces one key of the station file before Start.
    void SetStationKey(const QString& section, const QString& key, const QString& value);
    void SetConfig(const QString& key, const QString& value);

    std::unique_ptr<TempStation> station;
    ScriptedDialogs* dialogs = nullptr;
    QVector<int> endedWith;
};
