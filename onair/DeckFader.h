#pragma once
#include <QScrollBar>

class QPainter;

// The deck's fader: a vertical scroll bar of dB, +18 at the top and -60 at the bottom, one dB
// a step and three a page, drawn as a console fader: a slot with a scale of ticks and a cap.
class DeckFader : public QScrollBar
{
    Q_OBJECT
public:
    static constexpr int Top = 18;
    static constexpr int Bottom = -60;

    explicit DeckFader(QWidget* parent = nullptr);

    // The centre of the cap, in pixels from the top, when the fader stands at a value.
    int PositionOf(int value) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect CapRect() const;
    void DrawScale(QPainter& painter, const QRect& groove) const;
    void DrawCap(QPainter& painter, const QRect& cap) const;
};
