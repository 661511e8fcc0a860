#include "shell/FrmLoadProgress.h"
#include "foundation/Yield.h"
#include "foundation/ui/Twips.h"
#include <QLabel>

FrmLoadProgress::FrmLoadProgress()
    : Form(QStringLiteral("FrmLoadProgress"))
{
    setWindowTitle(QStringLiteral("Korvane"));
    setWindowFlag(Qt::SplashScreen);
    setFixedSize(Twips::ToPixels(4575), Twips::ToPixels(735));
    LblMessage = new QLabel(QStringLiteral("Korvane"), this);
    LblMessage->setObjectName(QStringLiteral("LblMessage"));
    LblMessage->setGeometry(Twips::Rect(120, 120, 4335, 495));
    LblMessage->setAlignment(Qt::AlignCenter);
}

void FrmLoadProgress::SetMessage(const QString& text)
{
    LblMessage->setText(text);
    Yield();
}

QString FrmLoadProgress::Message() const
{
    return LblMessage->text();
}
