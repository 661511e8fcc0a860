#pragma once
#include "shell/Form.h"
#include <QMap>

class QToolButton;

// The "Configuration" screen: a panel of picture buttons that open the settings screens.
// The system settings are open to administrators only.
class ConfigForm : public Form
{
    Q_OBJECT
public:
    ConfigForm();
    // Button by its index (0, 1, 3, 4, 7, 9, 10); null for any other.
    QToolButton* Cmd(int index) const { return m_buttons.value(index); }

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void Cmd_Click(int index);
    void AddButton(int index, const QString& caption, int row, int column);

    QMap<int, QToolButton*> m_buttons;
};
