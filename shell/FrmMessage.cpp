#include "shell/FrmMessage.h"
#include "foundation/ui/Twips.h"
#include <QLabel>
#include <QVBoxLayout>

FrmMessage::FrmMessage()
    : Form(QStringLiteral("FrmMessage"))
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose, false);
    setFixedSize(Twips::ToPixels(6090), Twips::ToPixels(1425));
    setAutoFillBackground(true);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(0, 0, 80));
    colours.setColor(QPalette::WindowText, QColor(192, 224, 255));
    setPalette(colours);

    LblCaption = new QLabel(QStringLiteral("Message"), this);
    LblCaption->setObjectName(QStringLiteral("LblCaption"));
    LblCaption->setAlignment(Qt::AlignCenter);
    LblCaption->setWordWrap(true);
    LblCaption->setFont(QFont(QStringLiteral("Arial"), 12));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(LblCaption);
    setStyleSheet(QStringLiteral("FrmMessage { border: 2px solid rgb(192,224,255); }"));
}

void FrmMessage::SetCaption(const QString& text)
{
    LblCaption->setText(text);
}

QString FrmMessage::Caption() const
{
    return LblCaption->text();
}
