#pragma once
#include <QPixmap>
#include <QTimer>
#include <QWidget>

class QToolButton;

// A picture button with auto-repeat. Two overlaid tool buttons of the control's size carry
// the released picture (Button(0)) and the pressed one (Button(1)); the one for the state is
// shown. While AutoFire is on and the button is held, AutoFired comes 500 ms after the press
// and then every 25 ms until release.
class UCButton : public QWidget
{
    Q_OBJECT
public:
    explicit UCButton(QWidget* parent = nullptr);

    QPixmap Picture() const { return m_picture; }
    void SetPicture(const QPixmap& picture);
    QPixmap PictureDown() const { return m_pictureDown; }
    void SetPictureDown(const QPixmap& picture);
    bool AutoFire() const { return m_autoFire; }
    void SetAutoFire(bool autoFire);
    // The latched state, shown with PictureDown.
    bool IsPressed() const { return m_pressed; }
    void SetPressed(bool pressed);

    QToolButton* Button(int index) const { return m_buttons[index]; }
    // The repeat timer and its tick: the first tick comes 500 ms after the press, the
    // following ones every 25 ms.
    const QTimer& TmrAutoFire() const { return m_tmrAutoFire; }
    void TmrAutoFire_Timer();

Q_SIGNALS:
    void Pressed();
    void Clicked();
    void AutoFired();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ResizeButtons();
    void RepaintButtons();

    QToolButton* m_buttons[2];
    QPixmap m_picture;
    QPixmap m_pictureDown;
    QTimer m_tmrAutoFire;
    bool m_autoFire = false;
    bool m_pressed = false;
    bool m_held = false;
};
