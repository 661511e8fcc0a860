#include "e2e/WorkstationTest.h"
#include "shell/modMain.h"
#include <QApplication>
#include <QWidget>

void WorkstationTest::TearDown()
{
    modMain::TearDown();
    for (QWidget* window : QApplication::topLevelWidgets())
        window->hide();
}
