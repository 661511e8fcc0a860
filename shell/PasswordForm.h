#pragma once
#include "shell/Form.h"

class QLineEdit;
class QPushButton;

// Asks for a user name and password and logs the user in through the kernel.
class PasswordForm : public Form
{
    Q_OBJECT
public:
    PasswordForm();

    QLineEdit* Text1;
    QLineEdit* Text2;
    QPushButton* Command1;
    QPushButton* Command2;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Command1_Click();
};
