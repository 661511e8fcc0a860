#pragma once
#include "shell/Form.h"

class QLabel;

// The floating message window that long operations show at the pointer.
class FrmMessage : public Form
{
    Q_OBJECT
public:
    FrmMessage();
    void SetCaption(const QString& text);
    QString Caption() const;

private:
    QLabel* LblCaption;
};
