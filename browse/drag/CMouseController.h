#pragma once
#include <QObject>
#include <QPoint>

class QWidget;

// Pointer facts for the controls. The pointer is the last position of a mouse event that the
// application saw (QCursor where none was seen yet), so that it is right on platforms whose
// cursor the program cannot read back (offscreen, a virtual display without a window manager).
class CMouseController : public QObject
{
    Q_OBJECT
public:
    CMouseController();
    ~CMouseController() override;

    // The pointer in client pixels of the widget.
    QPoint GetCursorCoordinatesOverControl(const QWidget* control) const;
    // True when the pointer lies inside the widget's rectangle.
    bool CursorOverControl(const QWidget* control) const;
    // The pointer in screen pixels.
    int CurrentMousePositionX() const { return Pointer().x(); }
    int CurrentMousePositionY() const { return Pointer().y(); }
    QPoint Pointer() const;
    // Moves the pointer one pixel right, lets the interface run and moves it back, so that a
    // hover effect refreshes without the user moving the mouse.
    void ReTickMouse();
    // The deepest visible widget of the program under a screen point, or null.
    static QWidget* WidgetAt(const QPoint& global);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPoint m_pointer;
    bool m_seen = false;
};
