#pragma once
#include <QColor>
#include <QLabel>

// A text window of the recorder and the eraser, like the lit display of a tape machine: the
// text in its fore colour on its back colour, in a bold type sized to the window's height. A
// text too wide is set smaller, down to two thirds, and beyond that cut with an ellipsis, so
// that the start of a long title always shows.
class TapeWindow : public QLabel
{
    Q_OBJECT
public:
    explicit TapeWindow(QWidget* parent = nullptr);

    QColor BackColor() const { return m_back; }
    QColor ForeColor() const { return m_fore; }
    void SetColors(const QColor& back, const QColor& fore);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont FittingFont(int room) const;

    QColor m_back{10, 12, 18};
    QColor m_fore{255, 255, 192};
};
