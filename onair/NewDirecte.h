#pragma once
#include "shell/Form.h"

// An empty screen kept in its place by its name.
class NewDirecte : public Form
{
    Q_OBJECT
public:
    NewDirecte();

protected:
    void Form_Unload() override;
};
