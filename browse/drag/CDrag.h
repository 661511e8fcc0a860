#pragma once
#include <QObject>
#include <QString>
#include <memory>

class CComponent;
class QMouseEvent;
class QWidget;

// The one drag of the program. Controls report their raw mouse events with their component
// (Notify); a press that moves 65 twips or more becomes a drag, and the release drops the
// source's component on the component that last reported a move.
//
// While a drag runs, the press of the source still holds Qt's implicit mouse grab, so moves
// and the release would all reach the source. CDrag therefore hands each of them to the
// widget under the pointer, as the source's drag being ended frees the mouse. A release over
// a widget that reports nothing (a gap, a border) drops on the last component moved over.
class CDrag : public QObject
{
    Q_OBJECT
public:
    enum Status : qint16 { Waiting = 0, Escaping = 1, Dragging = 2 };
    enum NotificationType : qint32 { MouseDown = 0, MouseMove = 1, MouseUp = 2 };
    enum Button : qint16 { LeftButton = 1, RightButton = 2, MiddleButton = 4 };
    enum Shift : qint16 { ShiftMask = 1, CtrlMask = 2, AltMask = 4 };
    static constexpr float Threshold = 65;

    CDrag();
    ~CDrag() override;

    // The only way in: one mouse event of a control, in twips of the control's own coordinates.
    void Notify(const std::shared_ptr<CComponent>& component, qint32 notificationType, qint16 button,
                qint16 shift, float x, float y);
    // Notify from a Qt mouse event of a control: converts buttons, keys and position.
    void NotifyMouse(const std::shared_ptr<CComponent>& component, qint32 notificationType, const QMouseEvent* event);

    qint16 Status() const { return m_status; }
    std::shared_ptr<CComponent> Source() const { return m_source; }
    std::shared_ptr<CComponent> Destination() const { return m_destination; }
    std::shared_ptr<CComponent> LastNotifier() const { return m_lastNotifier; }
    qint32 NotificationTypeOf() const { return m_notificationType; }
    qint16 ButtonOf() const { return m_button; }
    qint16 ShiftOf() const { return m_shift; }
    float CurrentX() const { return m_currentX; }
    float CurrentY() const { return m_currentY; }
    float ClickX() const { return m_clickX; }
    float ClickY() const { return m_clickY; }
    float Distance() const { return m_distance; }
    bool Exceeded() const { return m_exceeded; }

    // The words of the diagnostic panel.
    static QString StatusWord(qint16 status);
    static QString NotificationWord(qint32 type);
    static QString ButtonWord(qint16 button);
    static QString ShiftWord(qint16 shift);

Q_SIGNALS:
    void StartDrag();
    void Roll();
    void Changed();
    void EndDrag();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void RecalculateAll();
    void BeginDragging();
    void FinishDrag();
    bool Redirect(QMouseEvent* event);

    qint16 m_status = Waiting;
    std::shared_ptr<CComponent> m_lastNotifier;
    std::shared_ptr<CComponent> m_source;
    std::shared_ptr<CComponent> m_destination;
    qint32 m_notificationType = MouseMove;
    qint16 m_button = 0;
    qint16 m_shift = 0;
    float m_currentX = 0;
    float m_currentY = 0;
    float m_clickX = 0;
    float m_clickY = 0;
    float m_distance = 0;
    bool m_exceeded = false;
    bool m_redirecting = false;
};
