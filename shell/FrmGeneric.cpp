#include "shell/FrmGeneric.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/Yield.h"
#include "foundation/ui/TranslateWidgets.h"
#include "foundation/ui/Twips.h"
#include "kernelapi/KernelError.h"
#include "shell/CInterface.h"
#include "shell/FormPlacement.h"
#include "shell/InputRectangle.h"
#include "shell/Registry.h"
#include "shell/components/CEventProcessor.h"
#include "shell/modInterface.h"
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const QString Object = QStringLiteral("FrmGeneric");
constexpr int LoaderInterval = 50;
}

FrmGeneric::FrmGeneric()
    : Form(QStringLiteral("FrmGeneric"))
{
    setWindowTitle(QStringLiteral("Work place"));
    if (Globals::TheStation().ResolutionX > 0)
        FormPlacement::SizeToResolution(*this);
    else
        resize(800, 600);
    CmdExit = new QPushButton(QStringLiteral("Exit"), this);
    CmdExit->setObjectName(QStringLiteral("CmdExit"));
    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(CmdExit);
    auto* layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addLayout(bottom);
    Loader = new QTimer(this);
    Loader->setObjectName(QStringLiteral("Loader"));
    Loader->setSingleShot(true);
    connect(Loader, &QTimer::timeout, this, &FrmGeneric::Loader_Timer);
    connect(CmdExit, &QPushButton::clicked, this, &FrmGeneric::Unload);
}

QString FrmGeneric::IniPath()
{
    const QString chosen = qEnvironmentVariable("KORVANE_GENERIC_INI");
    if (!chosen.isEmpty())
        return chosen;
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("generic.ini"));
}

void FrmGeneric::Form_Load()
{
    Guarded(Object, QStringLiteral("Form_Load"), [this] {
        TranslateWithKernel(this);
        m_file = IniPath();
        if (!QFileInfo::exists(m_file))
            LogWarn(Object, QStringLiteral("Form_Load"), QStringLiteral("No generic.ini at '%1': no work components to create").arg(m_file));
        Loader->start(LoaderInterval);
    });
}

void FrmGeneric::Form_Unload()
{
    m_unloading = true;
    Loader->stop();
    ShowProgress(false);
    ReturnToMenu();
}

void FrmGeneric::Loader_Timer()
{
    Guarded(Object, QStringLiteral("Loader_Timer"), [this] {
        Loader->stop();
        const QPointer<FrmGeneric> self(this);
        Yield();
        if (!self || m_unloading)
            return;
        if (m_firstTick) {
            m_firstTick = false;
            ShowProgress(true);
        }
        if (!LoadNextControl()) {
            ShowProgress(false);
            return;
        }
        Yield();
        if (self && !m_unloading)
            Loader->start(LoaderInterval);
    });
}

bool FrmGeneric::LoadNextControl()
{
    const QString name = ReadIni(QStringLiteral("Plugins"), QStringLiteral("Plugin_") + QString::number(m_next), QString(), m_file);
    if (name.isEmpty()) {
        Message(Tr(QStringLiteral("Connecting components")));
        ConnectComponents();
        return false;
    }
    Message(Tr(QStringLiteral("Creating work components")) + QStringLiteral("\nPlugin = ") + name);
    AddControl(name, m_file);
    ++m_next;
    return true;
}

void FrmGeneric::AddControl(const QString& pluginName, const QString& file)
{
    const QString procedure = QStringLiteral("AddControl(PluginName = '%1', FileName = '%2')").arg(pluginName, file);
    Guarded(Object, procedure, [&](Step& step) {
        step(QStringLiteral("Create"));
        const QString className = QStringLiteral("Korvane_Interface.") + ReadIni(pluginName, QStringLiteral("Class"), QString(), file);
        const QRect twips = Rectangle(pluginName, file);
        QWidget* control = Registry::Create(className, this);
        if (!control) {
            Message(Tr(QStringLiteral("Object was not loaded")));
            throw KernelError(QStringLiteral("No control of the class '%1'").arg(className));
        }
        control->setObjectName(pluginName);
        step(QStringLiteral("Place"));
        Place(control, twips);
        step(QStringLiteral("FixedSettings"));
        ApplyFixedSettings(pluginName, control);
    });
}

QRect FrmGeneric::Rectangle(const QString& pluginName, const QString& file) const
{
    const auto key = [&](const char* name) {
        return qRound(ReadIni(pluginName, QString::fromLatin1(name), QStringLiteral("0"), file).toDouble());
    };
    const QRect written(key("Left"), key("Top"), key("Width"), key("Height"));
    if (ReadIni(pluginName, QStringLiteral("Query"), QString(), file).toLower() != QLatin1String("yes"))
        return written;
    return InputRectangle::Ask(pluginName, written).value_or(written);
}

// Brings the control to the front at its rectangle; a rectangle without a size keeps the
// size the control asks for.
void FrmGeneric::Place(QWidget* control, const QRect& twips)
{
    QRect pixels = Twips::Rect(twips.left(), twips.top(), twips.width(), twips.height());
    if (pixels.width() <= 0 || pixels.height() <= 0)
        pixels.setSize(control->sizeHint().expandedTo(QSize(1, 1)));
    control->raise();
    control->setGeometry(pixels);
    control->setVisible(true);
}

void FrmGeneric::ApplyFixedSettings(const QString& pluginName, QWidget* control)
{
    if (pluginName == QLatin1String("FileSystemMonitor1"))
        SetFixed(control, "Drive", QStringLiteral("C"));
    if (pluginName == QLatin1String("CartPlayer1")) {
        SetFixed(control, "ChannelName", QStringLiteral("A"));
        SetFixed(control, "StreamIndex", 1);
    }
}

void FrmGeneric::ConnectComponents()
{
    Connect(QStringLiteral("LoadUnitTrigger"), [this] {
        QWidget* discController = Control(QStringLiteral("DiscController1"));
        QWidget* ripper = Control(QStringLiteral("Ripper1"));
        auto* trigger = new CEventProcessor(this);
        trigger->SetSource(discController);
        trigger->AddTrigger(QStringLiteral("UnitChanged"));
        SetFixed(ripper, "LoadUnitTrigger", QVariant::fromValue(trigger));
    });
    Connect(QStringLiteral("FileSystemMonitor1.Init"), [this] { Invoke(Control(QStringLiteral("FileSystemMonitor1")), "Init"); });
    Connect(QStringLiteral("DiscController1.Init"), [this] { Invoke(Control(QStringLiteral("DiscController1")), "Init"); });
}

// Each fixed connection is tried on its own, so a work place without a disc still starts its
// file-system monitor; each one that cannot be made writes its ERROR line.
void FrmGeneric::Connect(const QString& step, const std::function<void()>& body)
{
    Guarded(Object, QStringLiteral("ConnectComponents"), [&](Step& current) {
        current(step);
        body();
    });
}

QWidget* FrmGeneric::Control(const QString& name) const
{
    auto* control = findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
    if (!control)
        throw KernelError(QStringLiteral("The control '%1' is not on the screen").arg(name));
    return control;
}

void FrmGeneric::SetFixed(QWidget* control, const char* property, const QVariant& value)
{
    if (control->metaObject()->indexOfProperty(property) < 0 || !control->setProperty(property, value))
        throw KernelError(QStringLiteral("The control '%1' does not take the property %2").arg(control->objectName(), QLatin1String(property)));
}

void FrmGeneric::Invoke(QWidget* control, const char* method)
{
    if (!QMetaObject::invokeMethod(control, method))
        throw KernelError(QStringLiteral("The control '%1' has no %2").arg(control->objectName(), QLatin1String(method)));
}

// The message window is up from the first tick until the list ends or the screen closes.
void FrmGeneric::ShowProgress(bool show)
{
    CInterface* ui = modInterface::Interface();
    if (!ui || show == m_progressShown)
        return;
    m_progressShown = show;
    if (show)
        ui->MessagePush(Tr(QStringLiteral("Creating work components")));
    else
        ui->MessagePop();
}

void FrmGeneric::Message(const QString& text)
{
    if (CInterface* ui = modInterface::Interface())
        ui->MessageUpdate(text);
}
