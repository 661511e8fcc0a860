#pragma once
#include "shell/Form.h"

// An empty screen kept in its place by its name.
class TestDirecte : public Form
{
    Q_OBJECT
public:
    TestDirecte();

protected:
    void Form_Unload() override;
};
