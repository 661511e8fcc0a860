#include "onair/Directe.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "onair/CartSearchDialog.h"
#include "onair/IFFastCarts.h"
#include "shell/CInterface.h"
#include "shell/FormPlacement.h"
#include "shell/modInterface.h"
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace {
const QString Object = QStringLiteral("Directe");
}

Directe::Directe()
    : Form(QStringLiteral("Directe"))
{
    setWindowTitle(QStringLiteral("Live"));
    auto* screen = new QVBoxLayout(this);
    screen->setContentsMargins(8, 8, 8, 8);
    screen->setSpacing(8);
    screen->addWidget(BuildHeader());
    auto* columns = new QHBoxLayout;
    columns->setSpacing(10);
    columns->addWidget(BuildBrowsers(), 4);
    columns->addWidget(BuildLists(), 4);
    columns->addWidget(BuildDecks(), 6);
    screen->addLayout(columns, 1);
    TmrLoader.setInterval(LoaderIntervalMs);
    TmrLoader.setSingleShot(true);
    connect(&TmrLoader, &QTimer::timeout, this, &Directe::TmrLoader_Timer);
    WireControls();
    // The screen itself holds the focus when it opens, so that the keys fire the pads until a
    // text box is chosen.
    setFocusPolicy(Qt::StrongFocus);
    FormPlacement::SizeToResolution(*this);
}

void Directe::Form_Load()
{
    const QString procedure = QStringLiteral("Form_Load");
    LogOk(Object, procedure, QStringLiteral("Loading."));
    if (CInterface* ui = modInterface::Interface())
        ui->MessagePush(Tr(QStringLiteral("[Wait]")));
    TmrLoader.start();
    LogOk(Object, procedure, QStringLiteral("Loaded."));
    setFocus();
}

void Directe::Form_Unload()
{
    TmrLoader.stop();
    if (m_searchResults)
        m_searchResults->close();
    ReturnToMenu();
}

void Directe::keyPressEvent(QKeyEvent* event)
{
    if (!event->text().isEmpty())
        IFFastCarts1->SendShortcut(event->text().at(0));
    Form::keyPressEvent(event);
}
