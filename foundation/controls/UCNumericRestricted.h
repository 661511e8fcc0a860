#pragma once
#include <QColor>
#include <QTimer>
#include <QWidget>

class QLineEdit;
class UCButton;

// A whole number between two limits, typed or stepped with two arrow buttons that repeat
// while held. Every change raises Changing; a burst of changes ends with a single Changed,
// 50 ms after the last one. A typed entry counts only when accepted (Enter or leaving the
// box); until then the box is tinted, and a refused entry snaps back to the held value.
class UCNumericRestricted : public QWidget
{
    Q_OBJECT
public:
    explicit UCNumericRestricted(QWidget* parent = nullptr);
    ~UCNumericRestricted() override;

    qint32 Value() const { return m_value; }
    // Held to the limits; raises the events only when the stored value changes.
    void SetValue(qint32 value);
    qint32 LowerLimitIncluded() const { return m_lower; }
    void SetLowerLimitIncluded(qint32 limit);
    qint32 HigherLimitIncluded() const { return m_higher; }
    void SetHigherLimitIncluded(qint32 limit);

    void Increment();
    void Decrement();
    // Takes the number in the box (text that is no number counts 0) and writes back the value held.
    void Accept();

    // The colour of the box: white when accepted, cream while an entry waits.
    QColor BoxColor() const { return m_boxColor; }
    const QTimer& TmrDelay() const { return m_tmrDelay; }
    void TmrDelay_Timer();

    QLineEdit* TxtValue;
    UCButton* CmdLeft;
    UCButton* CmdRight;

Q_SIGNALS:
    void Changing();
    void Changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void TryToRaiseEvent();
    void SetBoxColor(const QColor& colour);
    void ShowArrows();

    qint32 m_value = 0;
    qint32 m_lower = 0;
    qint32 m_higher = 100;
    QColor m_boxColor;
    QTimer m_tmrDelay;
};
