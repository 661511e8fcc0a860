#include "onair/TestDirecte.h"

TestDirecte::TestDirecte()
    : Form(QStringLiteral("TestDirecte"))
{
}

void TestDirecte::Form_Unload()
{
    ReturnToMenu();
}
