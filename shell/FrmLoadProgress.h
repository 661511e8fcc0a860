#pragma once
#include "shell/Form.h"

class QLabel;

// The small window that tells the stages of start-up.
class FrmLoadProgress : public Form
{
    Q_OBJECT
public:
    FrmLoadProgress();
    // Shows the text and lets the event loop run one pass so that it is painted.
    void SetMessage(const QString& text);
    QString Message() const;

private:
    QLabel* LblMessage;
};
