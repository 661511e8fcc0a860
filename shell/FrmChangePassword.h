#pragma once
#include "shell/Form.h"

class QLineEdit;
class QPushButton;

// Changes the current user's password through the kernel, which holds the password rules.
class FrmChangePassword : public Form
{
    Q_OBJECT
public:
    FrmChangePassword();

    QLineEdit* TxtOldPassword;
    QLineEdit* TxtNewPassword;
    QLineEdit* TxtNewPassword2;
    QPushButton* CmdAccept;
    QPushButton* CmdCancel;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit* AddPasswordField(const QString& caption, const QString& name, class QFormLayout* layout);
    void CmdAccept_Click();
};
