#include "foundation/controls/IFBlackBoard.h"
#include "foundation/ui/SilenceDescendants.h"
#include "foundation/controls/PrintBoard.h"
#include "foundation/controls/VolmarPannel.h"
#include <QColor>
#include <array>

namespace {
struct BoardColors
{
    QColor text;
    QColor board;
};

const std::array<BoardColors, 5> Palette = {{
    {QColor(128, 192, 255), QColor(0, 0, 64)},
    {QColor(0, 240, 0), QColor(0, 64, 0)},
    {QColor(255, 192, 0), QColor(64, 48, 0)},
    {QColor(255, 96, 96), QColor(64, 0, 0)},
    {QColor(255, 255, 0), QColor(64, 64, 0)},
}};
}

IFBlackBoard::IFBlackBoard(QWidget* parent)
    : QWidget(parent)
    , BackGround(new QWidget(this))
    , Border(new VolmarPannel(BackGround, QStringLiteral("Border")))
    , Border2(new VolmarPannel(Border, QStringLiteral("Border2")))
    , Board(new PrintBoard(Border2))
{
    BackGround->setObjectName(QStringLiteral("BackGround"));
    Board->setObjectName(QStringLiteral("Board"));
    // The caption is written in the button text colour that goes with the panels' button face.
    for (VolmarPannel* panel : {Border, Border2}) {
        panel->SetVisibleGuide(false);
        panel->SetForeColor(palette().color(QPalette::ButtonText));
    }
    Border2->SetBorder(4);
    Border2->SetBorderCaption(4);
    connect(Board, &PrintBoard::PressedAt, this, [this](double x) { m_secondColumn = x; });
    SetColor(0);
    SetCaption(QStringLiteral("Title"));
}

IFBlackBoard::~IFBlackBoard()
{
    SilenceDescendants(*this);
}

void IFBlackBoard::SetCaption(const QString& caption)
{
    m_caption = caption;
    if (m_doubleBorder) {
        Border->SetCaption(caption);
        Border2->SetCaption(QString());
    } else {
        Border->SetCaption(QString());
        Border2->SetCaption(caption);
        SetMargins();
    }
}

void IFBlackBoard::SetColor(int color)
{
    m_color = color;
    if (color >= 0 && color < static_cast<int>(Palette.size()))
        Board->SetColors(Palette[color].text, Palette[color].board);
}

void IFBlackBoard::SetDoubleBorder(bool doubleBorder)
{
    m_doubleBorder = doubleBorder;
    if (doubleBorder) {
        Border2->setParent(Border);
        Border->show();
        Border2->show();
        Border->SetActiveOnce(true);
    } else {
        Border->hide();
        SetMargins();
        Border2->setParent(BackGround);
        Border2->show();
    }
    SetCaption(m_caption);
    FitOuterPanel();
}

void IFBlackBoard::SetMargins()
{
    Border2->SetBorderCaption(m_caption.isEmpty() ? 6 : 16);
}

void IFBlackBoard::PrintText(const QString& text, bool centerX, bool centerY)
{
    if (centerX)
        Board->SetCurrentX(PrintBoard::ScaleWidth / 2 - Board->TextWidth(text) / 2);
    if (centerY)
        Board->SetCurrentY(Board->ScaleHeight() / 2 - Board->TextHeight() / 2);
    Board->Print(text);
}

void IFBlackBoard::PrintText2(const QString& left, const QString& right)
{
    const int row = Board->CurrentY();
    Board->Print(left);
    Board->SetCurrentY(row);
    Board->SetCurrentX(m_secondColumn);
    Board->Print(right);
}

void IFBlackBoard::Cls()
{
    Board->Cls();
}

QStringList IFBlackBoard::PrintedLines() const
{
    // Texts on one row (the two columns of PrintText2) make one line, separated by a tab.
    QStringList lines;
    int row = -1;
    for (const PrintBoard::PrintedText& printed : Board->Printed()) {
        if (printed.y == row && !lines.isEmpty())
            lines.last() += QLatin1Char('\t') + printed.text;
        else
            lines.append(printed.text);
        row = printed.y;
    }
    return lines;
}

void IFBlackBoard::resizeEvent(QResizeEvent*)
{
    FitOuterPanel();
}

void IFBlackBoard::FitOuterPanel()
{
    BackGround->setGeometry(rect());
    (m_doubleBorder ? Border : Border2)->setGeometry(BackGround->rect());
}
