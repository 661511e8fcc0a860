#include "shell/FrmLevels.h"
#include "foundation/ErrorGuard.h"
#include "foundation/ui/TranslateWidgets.h"
#include "metering/IFChannelMonitor.h"
#include "metering/IFVumeters.h"
#include <QGridLayout>
#include <QPushButton>

FrmLevels::FrmLevels()
    : Form(QStringLiteral("FrmLevels"))
{
    setWindowTitle(QStringLiteral("Levels"));
    auto* grid = new QGridLayout(this);
    m_vumeters = new IFVumeters(this);
    m_vumeters->setObjectName(QStringLiteral("IFVumeters1"));
    m_monitor = new IFChannelMonitor(this);
    m_monitor->setObjectName(QStringLiteral("IFChannelMonitor1"));
    CmdExit = new QPushButton(QStringLiteral("Back"), this);
    CmdExit->setObjectName(QStringLiteral("CmdExit"));
    grid->addWidget(m_vumeters, 0, 0, 2, 1);
    grid->addWidget(m_monitor, 0, 1);
    grid->addWidget(CmdExit, 1, 1, Qt::AlignRight | Qt::AlignBottom);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    resize(560, 360);
    connect(CmdExit, &QPushButton::clicked, this, &FrmLevels::Unload);
}

void FrmLevels::Form_Load()
{
    Guarded(QStringLiteral("FrmLevels"), QStringLiteral("Form_Load"), [this] {
        TranslateWithKernel(this);
        m_vumeters->Init();
        m_monitor->Init();
    });
}

void FrmLevels::Form_Unload()
{
    ReturnToMenu();
}
