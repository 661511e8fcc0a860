// The pad's controls and their places. A pad lays its texts out by its own height: the key in
// the top left corner, the icon in the top right, the title across the middle on as many lines
// as fit, the comment under it and the length in the bottom right corner. A single line puts
// the icon first and the title after it.
#include "onair/IFFastCart.h"
#include "onair/PadDesign.h"
#include "onair/PadLabel.h"
#include "onair/PadPictures.h"
#include <QLabel>
#include <QPainter>
#include <algorithm>

void IFFastCart::CreateControls()
{
    PicContainer = new QWidget(this);
    PicContainer->setObjectName(QStringLiteral("PicContainer"));
    PicContainer->setAttribute(Qt::WA_TranslucentBackground);
    PicContainer->setMouseTracking(true);
    LblCaption = new QLabel(this);
    LblCaption->setObjectName(QStringLiteral("LblCaption"));
    LblCaption->setStyleSheet(QStringLiteral("QLabel { color: #d0d4dc; background: #181a20; padding-left: 3px; }"));
    LblCaption->hide();
    Icon = new QLabel(PicContainer);
    Icon->setObjectName(QStringLiteral("Icon"));
    Icon->setAlignment(Qt::AlignCenter);
    LblShortCut = new PadLabel(QStringLiteral("LblShortCut"), PicContainer);
    LblDescription1 = new PadLabel(QStringLiteral("LblDescription1"), PicContainer);
    LblDescription2 = new PadLabel(QStringLiteral("LblDescription2"), PicContainer);
    LblDescription2->SetWrap(true);
    LblComment = new PadLabel(QStringLiteral("LblComment"), PicContainer);
    LblTime = new PadLabel(QStringLiteral("LblTime"), PicContainer);
    LblTime->SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
    installEventFilter(this);
    for (QWidget* child : findChildren<QWidget*>())
        child->installEventFilter(this);
}

void IFFastCart::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Reposition();
}

void IFFastCart::Reposition()
{
    const int captionHeight = m_caption.isEmpty() ? 0 : std::max(14, fontMetrics().height() + 2);
    LblCaption->setGeometry(0, 0, width(), captionHeight);
    const int gap = PadDesign::Gap;
    PicContainer->setGeometry(gap, captionHeight + gap, std::max(0, width() - 2 * gap),
                              std::max(0, height() - captionHeight - 2 * gap));
    if (m_mode == PadFace::Pad)
        RepositionPad();
    else
        RepositionSingleLine();
    Icon->setPixmap(PadPictures::Icon(m_face.icon, std::max(1, Icon->height())));
}

void IFFastCart::RepositionPad()
{
    const int w = PicContainer->width(), h = PicContainer->height();
    const int pad = std::max(2, h / 20);
    const int top = std::clamp(h * 28 / 100, 10, 40);
    const int bottom = std::clamp(h * 22 / 100, 9, 30);
    LblShortCut->SetPixelSize(top * 85 / 100);
    LblShortCut->setGeometry(pad, 0, top * 2, top);
    Icon->setGeometry(w - top - pad, pad / 2, top, top);
    LblTime->SetPixelSize(bottom * 75 / 100);
    LblTime->setGeometry(w / 3, h - bottom, w * 2 / 3 - pad, bottom);
    LblComment->SetPixelSize(bottom * 65 / 100);
    LblComment->setGeometry(pad, h - bottom, w / 3 + w / 6, bottom);
    LblDescription2->SetPixelSize(std::clamp(h / 6, 8, 22));
    LblDescription2->setGeometry(pad, top, w - 2 * pad, h - top - bottom);
}

void IFFastCart::RepositionSingleLine()
{
    const int w = PicContainer->width(), h = PicContainer->height();
    Icon->setGeometry(0, 0, h, h);
    LblDescription1->SetPixelSize(std::clamp(h * 6 / 10, 8, 18));
    LblDescription1->setGeometry(h + 4, 0, std::max(0, w - h - 6), h);
}

void IFFastCart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), PadDesign::Frame);
    const QRect face = PicContainer->geometry();
    const QColor back = BackColor();
    painter.fillRect(face, back);
    // A lighter top edge and a darker bottom one give the pad the look of a key.
    painter.setPen(back.lighter(140));
    painter.drawLine(face.topLeft(), face.topRight());
    painter.setPen(back.darker(160));
    painter.drawLine(face.bottomLeft(), face.bottomRight());
}
