#pragma once
#include "shell/Form.h"

class QLabel;
class QTimer;

// The form behind everything. Its one-second timer requeries the shared recordsets and runs
// the menu watchdog, so that the user is never left with an empty desktop.
class BackGround : public Form
{
    Q_OBJECT
public:
    static BackGround* Instance();
    static bool Exists();

    void ResetResolution();
    // One tick of Timer1, also callable directly.
    void Timer1_Timer();

private:
    BackGround();
    void RefreshAllRecordset();

    QTimer* Timer1;
    QLabel* Image1;
};
