#pragma once
#include <QWidget>

class PrintBoard;
class VolmarPannel;

// A dark text board with a titled border, on which monitors and information panels print
// lines. With DoubleBorder the board sits in Border2 inside Border, which carries the
// caption; without it Border is hidden and Border2 carries the caption itself.
class IFBlackBoard : public QWidget
{
    Q_OBJECT
public:
    explicit IFBlackBoard(QWidget* parent = nullptr);
    ~IFBlackBoard() override;

    QString Caption() const { return m_caption; }
    void SetCaption(const QString& caption);
    // 0 blue, 1 green, 2 amber, 3 red, 4 yellow text on a dark ground of the same hue;
    // another value is kept and changes nothing.
    int Color() const { return m_color; }
    void SetColor(int color);
    bool DoubleBorder() const { return m_doubleBorder; }
    void SetDoubleBorder(bool doubleBorder);

    // Prints a line, centred across and/or down the board when asked.
    void PrintText(const QString& text, bool centerX = false, bool centerY = false);
    // Prints two columns on one line; the second starts at the column of the last press on
    // the board, 0.3 of its width until the first press.
    void PrintText2(const QString& left, const QString& right);
    void Cls();
    // The lines printed since the last Cls, top to bottom.
    QStringList PrintedLines() const;

    QWidget* BackGround;
    VolmarPannel* Border;
    VolmarPannel* Border2;
    PrintBoard* Board;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetMargins();
    void FitOuterPanel();

    QString m_caption;
    int m_color = 0;
    bool m_doubleBorder = true;
    double m_secondColumn = 0.3;
};
