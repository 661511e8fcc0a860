#pragma once
#include <QColor>
#include <QLabel>

// A text window of the recorder and the eraser, like the lit display of a tape machine: the
// text in its fore colour on its back colour, in a bold type sized to the window's height.
class TapeWindow : public QLabel
{
    Q_OBJECT
public:
    explicit TapeWindow(QWidget* parent = nullptr);

    QColor BackColor() const { return m_back; }
    QColor ForeColor() const { return m_fore; }
    void SetColors(const QColor& back, const QColor& fore);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void ApplyLook();

    QColor m_back{10, 12, 18};
    QColor m_fore{255, 255, 192};
};
