#pragma once
#include <QColor>
#include <QWidget>

// The body of the deck. Its back colour tells the player's state from across the studio:
// the body is tinted with it, and a rim around the body shows it in full.
class DeckBackground : public QWidget
{
    Q_OBJECT
public:
    explicit DeckBackground(QWidget* parent = nullptr);

    QColor BackColor() const { return m_backColor; }
    void SetBackColor(const QColor& colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_backColor{64, 64, 64};
};
