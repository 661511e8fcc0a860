#pragma once
#include <QColor>
#include <QFont>
#include <QVector>
#include <QWidget>

// The surface of a text board. Text is printed at the print position, which then moves to
// the start of the next line; what was printed is kept, so the board draws it again after a
// resize. The horizontal scale runs from 0 at the left edge to 1 at the right one, so columns
// keep their proportion on any width; vertically the scale counts pixels.
class PrintBoard : public QWidget
{
    Q_OBJECT
public:
    struct PrintedText
    {
        double x = 0;
        int y = 0;
        QString text;
    };

    explicit PrintBoard(QWidget* parent = nullptr);

    void SetColors(const QColor& text, const QColor& board);
    QColor TextColor() const { return m_textColor; }
    QColor BoardColor() const { return m_boardColor; }

    void Print(const QString& text);
    void Cls();

    double CurrentX() const { return m_currentX; }
    void SetCurrentX(double x) { m_currentX = x; }
    int CurrentY() const { return m_currentY; }
    void SetCurrentY(int y) { m_currentY = y; }
    static constexpr double ScaleWidth = 1.0;
    int ScaleHeight() const { return height(); }
    // The size of a text in the board's scale.
    double TextWidth(const QString& text) const;
    int TextHeight() const;

    const QVector<PrintedText>& Printed() const { return m_printed; }

Q_SIGNALS:
    // A press on the board, at x in the board's scale.
    void PressedAt(double x);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QFont m_font;
    QColor m_textColor;
    QColor m_boardColor;
    double m_currentX = 0;
    int m_currentY = 0;
    QVector<PrintedText> m_printed;
};
