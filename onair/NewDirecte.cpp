#include "onair/NewDirecte.h"

NewDirecte::NewDirecte()
    : Form(QStringLiteral("NewDirecte"))
{
}

void NewDirecte::Form_Unload()
{
    ReturnToMenu();
}
