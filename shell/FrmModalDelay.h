#pragma once
#include "shell/Form.h"
#include <QTime>

class QLabel;
class QPushButton;
class QTimer;

// "Waiting cycle": waits until one digit of the clock ("HH:MM:SS") reaches a destination,
// showing the destination mask, the present time and what remains; then it closes.
class FrmModalDelay : public Form
{
    Q_OBJECT
public:
    enum class Mode { DecHour, UniHour, DecMin, UniMin, DecSec, UniSec, DecUniMin, Unknown };

    FrmModalDelay();
    static Mode ModeFromName(const QString& name);
    // A mode name (UniMin, DecMin, DecSec, UniSec, DecHour, UniHour, DecUniMin) and its digit;
    // DecUniMin takes the whole minute, 0 to 59.
    void SetDestination(int digit, const QString& mode);
    // The mask in which the destination is shown, e.g. "--:-5:--".
    static QString DestinationMask(int digit, Mode mode);
    // Seconds from a time of day until the destination is reached (0 when it is now).
    static int SecondsRemaining(const QTime& now, int digit, Mode mode);

    // One tick: refresh the texts and close when the destination is reached.
    void Timer1_Timer();
    QString Remaining() const;

protected:
    void Form_Load() override;

private:
    QLabel* AddLine(const QString& caption, class QGridLayout* grid, int row);

    QLabel* LblDestination;
    QLabel* LblActual;
    QLabel* LblRemaining;
    QPushButton* CmdExit;
    QTimer* Timer1;
    int m_digit = 0;
    Mode m_mode = Mode::Unknown;
};
