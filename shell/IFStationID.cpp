#include "shell/IFStationID.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include <QHBoxLayout>
#include <QLabel>

IFStationID::IFStationID(QWidget* parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("IFStationID"));
    LblCaption = new QLabel(this);
    LblCaption->setObjectName(QStringLiteral("LblCaption"));
    KeepUntranslated(LblCaption);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 2, 10, 2);
    layout->addWidget(LblCaption);
    Guarded(QStringLiteral("IFStationID"), QStringLiteral("UserControl_Initialize"), [this] { TranslateMe(); });
}

void IFStationID::TranslateMe()
{
    LblCaption->setText(Tr(QStringLiteral("Station ID: ")) + Globals::Kernel()->StationID());
}

QString IFStationID::Caption() const
{
    return LblCaption->text();
}
