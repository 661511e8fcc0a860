// The generic screen on the real workstation: generic.ini in the station folder (through
// KORVANE_GENERIC_INI), the loader driven tick by tick, and stand-ins for the disc
// controller, the ripper and the cart player, which live in other folders.
#include "ShellFixture.h"
#include "browse/drag/IFDragMonitor.h"
#include "shell/CInterface.h"
#include "shell/FrmGeneric.h"
#include "shell/IFFileSystemMonitor.h"
#include "shell/InitForm.h"
#include "shell/Registry.h"
#include "shell/components/CEventProcessor.h"
#include "shell/modInterface.h"
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {
class TestDiscController : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
    Q_INVOKABLE void Init() { ++inits; }
    int inits = 0;
Q_SIGNALS:
    void UnitChanged(int unit);
};

class TestRipper : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(CEventProcessor* LoadUnitTrigger MEMBER trigger)
public:
    using QWidget::QWidget;
    CEventProcessor* trigger = nullptr;
};

class TestCartPlayer : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString ChannelName MEMBER channel)
    Q_PROPERTY(int StreamIndex MEMBER stream)
public:
    using QWidget::QWidget;
    QString channel;
    int stream = 0;
};

template <typename T>
void RegisterStandIn(const char* name)
{
    Registry::Register(QStringLiteral("Korvane_Interface.") + QLatin1String(name), [](QWidget* parent) -> QWidget* { return new T(parent); });
}

class Generic : public ShellFixture
{
protected:
    void SetUp() override
    {
        ShellFixture::SetUp();
        iniPath = station->Dir() + QStringLiteral("generic.ini");
        qputenv("KORVANE_GENERIC_INI", iniPath.toLocal8Bit());
        RegisterStandIn<TestDiscController>("TestDiscController");
        RegisterStandIn<TestRipper>("TestRipper");
        RegisterStandIn<TestCartPlayer>("TestCartPlayer");
    }

    void WriteGeneric(const QByteArray& content)
    {
        QFile file(iniPath);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    // Starts the workstation and opens the screen; its first show starts the loader.
    void Open()
    {
        ASSERT_TRUE(Start());
        form = qobject_cast<FrmGeneric*>(Registry::Create(QStringLiteral("FrmGeneric")));
        ASSERT_NE(form, nullptr);
        form->show();
        ASSERT_TRUE(form->Loader->isActive());
        ASSERT_EQ(form->Loader->interval(), 50);
    }

    // Ticks the loader until it stops; the number of ticks.
    int RunLoader()
    {
        int ticks = 0;
        while (form->Loader->isActive() && ticks < 50) {
            form->Loader_Timer();
            ++ticks;
        }
        return ticks;
    }

    template <typename T> T* Child(const char* name) const { return form->findChild<T*>(QLatin1String(name)); }
    QString MessageText() const { return modInterface::Interface()->MessageText(); }
    int ErrorLines() const { return static_cast<int>(LogText().count(QStringLiteral("ERROR: "))); }

    QString iniPath;
    FrmGeneric* form = nullptr;
};

const QByteArray WorkPlace = "[Plugins]\n"
                             "Plugin_0=DiscController1\nPlugin_1=Ripper1\nPlugin_2=FileSystemMonitor1\n"
                             "Plugin_3=CartPlayer1\nPlugin_4=DragMonitor1\nPlugin_6=NeverReached\n"
                             "[DiscController1]\nClass=TestDiscController\nLeft=0\nTop=0\nWidth=1500\nHeight=1500\n"
                             "[Ripper1]\nClass=TestRipper\nLeft=1500\nTop=0\nWidth=1500\nHeight=1500\n"
                             "[FileSystemMonitor1]\nClass=IFFileSystemMonitor\nLeft=150\nTop=300\nWidth=6000\nHeight=450\n"
                             "[CartPlayer1]\nClass=TestCartPlayer\nLeft=0\nTop=3000\nWidth=4500\nHeight=1500\n"
                             "[DragMonitor1]\nClass=IFDragMonitor\nQuery=YES\nLeft=0\nTop=0\nWidth=0\nHeight=0\n"
                             "[NeverReached]\nClass=TestRipper\n";
}

TEST_F(Generic, BuildsAWorkPlaceOneControlATickThenConnectsTheFixedNames)
{
    WriteGeneric(WorkPlace);
    dialogs->inputs = {QStringLiteral("15, 15, 1500, 3000")};
    Open();
    form->Loader_Timer();
    EXPECT_EQ(MessageText(), QStringLiteral("Creating work components\nPlugin = DiscController1"));
    EXPECT_EQ(RunLoader(), 5) << "four more controls, then the connecting tick";
    EXPECT_TRUE(MessageText().isEmpty()) << "the message window is gone at the end";
    EXPECT_EQ(Child<QWidget>("NeverReached"), nullptr) << "the first empty Plugin_n ends the list";

    auto* monitor = Child<IFFileSystemMonitor>("FileSystemMonitor1");
    ASSERT_NE(monitor, nullptr);
    EXPECT_EQ(monitor->geometry(), QRect(10, 20, 400, 30));
    EXPECT_TRUE(monitor->isVisible());
    EXPECT_EQ(monitor->Drive(), QStringLiteral("C"));
    EXPECT_TRUE(monitor->Timer1->isActive()) << "Init started the watch";

    auto* player = Child<TestCartPlayer>("CartPlayer1");
    ASSERT_NE(player, nullptr);
    EXPECT_EQ(player->channel, QStringLiteral("A"));
    EXPECT_EQ(player->stream, 1);

    auto* dragMonitor = Child<IFDragMonitor>("DragMonitor1");
    ASSERT_NE(dragMonitor, nullptr);
    EXPECT_EQ(dragMonitor->geometry(), QRect(1, 1, 100, 200)) << "the asked rectangle, in twips";
    EXPECT_EQ(dragMonitor->Drag(), &modInterface::Interface()->Drag());

    auto* disc = Child<TestDiscController>("DiscController1");
    auto* ripper = Child<TestRipper>("Ripper1");
    ASSERT_NE(disc, nullptr);
    ASSERT_NE(ripper, nullptr);
    EXPECT_EQ(disc->inits, 1);
    ASSERT_NE(ripper->trigger, nullptr);
    QStringList matched;
    QObject::connect(ripper->trigger, &CEventProcessor::Match,
                     [&](const QString& event, std::shared_ptr<CData> name) { matched << event << name->Value().toString(); });
    Q_EMIT disc->UnitChanged(1);
    EXPECT_EQ(matched, (QStringList{QStringLiteral("UnitChanged"), QStringLiteral("UnitChanged")}));
    EXPECT_EQ(ErrorLines(), 0) << LogText().toStdString();
}

TEST_F(Generic, WithoutPluginZeroTheFirstTickConnectsAndEachMissingNameIsLogged)
{
    WriteGeneric("[Plugins]\nPlugin_1=Ripper1\n[Ripper1]\nClass=TestRipper\n");
    Open();
    EXPECT_EQ(RunLoader(), 1);
    EXPECT_FALSE(form->Loader->isActive());
    EXPECT_EQ(form->findChild<TestRipper*>(), nullptr);
    const QString log = LogText();
    EXPECT_TRUE(log.contains(QStringLiteral("ERROR: Korvane_Interface_v1_2_c.FrmGeneric.ConnectComponents.LoadUnitTrigger: The control 'DiscController1' is not on the screen")));
    EXPECT_TRUE(log.contains(QStringLiteral("FrmGeneric.ConnectComponents.FileSystemMonitor1.Init: The control 'FileSystemMonitor1' is not on the screen")));
    EXPECT_TRUE(log.contains(QStringLiteral("FrmGeneric.ConnectComponents.DiscController1.Init: The control 'DiscController1' is not on the screen")));
    EXPECT_EQ(ErrorLines(), 3);
}

TEST_F(Generic, AMissingFileIsNamedInTheLogAndLeavesAnEmptyScreen)
{
    Open();
    EXPECT_EQ(RunLoader(), 1);
    EXPECT_TRUE(LogText().contains(QStringLiteral("WARN: Korvane_Interface_v1_2_c.FrmGeneric.Form_Load: No generic.ini at '") + iniPath));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(MessageText().isEmpty());
}

TEST_F(Generic, AnUnknownClassSaysObjectWasNotLoadedAndTheLoaderGoesOn)
{
    WriteGeneric("[Plugins]\nPlugin_0=Ghost\nPlugin_1=FileSystemMonitor1\n"
                 "[Ghost]\nClass=NoSuchControl\n"
                 "[FileSystemMonitor1]\nClass=IFFileSystemMonitor\n");
    Open();
    form->Loader_Timer();
    EXPECT_EQ(MessageText(), QStringLiteral("Object was not loaded"));
    EXPECT_TRUE(form->Loader->isActive());
    EXPECT_TRUE(LogText().contains(QStringLiteral("FrmGeneric.AddControl(PluginName = 'Ghost', FileName = '") + iniPath +
                                   QStringLiteral("').Create: No control of the class 'Korvane_Interface.NoSuchControl'")));
    EXPECT_EQ(RunLoader(), 2);
    auto* monitor = Child<IFFileSystemMonitor>("FileSystemMonitor1");
    ASSERT_NE(monitor, nullptr);
    EXPECT_FALSE(monitor->size().isEmpty()) << "no size written: the control's own";
    EXPECT_TRUE(monitor->Timer1->isActive());
}

TEST_F(Generic, AFixedSettingTheControlDoesNotTakeIsLoggedAndTheControlStays)
{
    WriteGeneric("[Plugins]\nPlugin_0=CartPlayer1\n[CartPlayer1]\nClass=TestRipper\n");
    Open();
    RunLoader();
    EXPECT_NE(Child<TestRipper>("CartPlayer1"), nullptr);
    EXPECT_TRUE(LogText().contains(QStringLiteral(".FixedSettings: The control 'CartPlayer1' does not take the property ChannelName")));
}

TEST_F(Generic, ExitWhileLoadingUnloadsTheScreenTakesTheMessageAwayAndBringsTheMenuBack)
{
    WriteGeneric(WorkPlace);
    Open();
    form->Loader_Timer();
    ASSERT_FALSE(MessageText().isEmpty());
    QTest::mouseClick(form->CmdExit, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(Form::Find(QStringLiteral("FrmGeneric")), nullptr);
    EXPECT_TRUE(MessageText().isEmpty());
    EXPECT_TRUE(InitForm::Instance()->isVisible());
}

class DriveMonitor : public ShellFixture
{
protected:
    IFFileSystemMonitor monitor;
};

TEST_F(DriveMonitor, AMappedLetterShowsItsMountPointSizesAndFreeShare)
{
    SetStationKey(QStringLiteral("Drives"), QStringLiteral("X"), station->Dir());
    ASSERT_TRUE(Start());
    monitor.SetDrive(QStringLiteral("x"));
    monitor.Init();
    EXPECT_EQ(monitor.Drive(), QStringLiteral("X"));
    EXPECT_EQ(monitor.LblDriveLetter->text(), QStringLiteral("X:"));
    EXPECT_EQ(monitor.LblPath->text(), station->Dir());
    EXPECT_EQ(monitor.LblIsReady->text(), QStringLiteral("True"));
    EXPECT_FALSE(monitor.LblTotalSize->text().isEmpty());
    EXPECT_FALSE(monitor.LblFileSystem->text().isEmpty());
    EXPECT_GT(monitor.Percent(), 0);
    EXPECT_LE(monitor.Percent(), 100);
    EXPECT_EQ(monitor.LblPercent->text(), QString::number(qRound(monitor.Percent())) + QLatin1Char('%'));
}

TEST_F(DriveMonitor, CIsTheRootUnlessMappedAndOtherLettersAreNotReadyUntilMapped)
{
    SetStationKey(QStringLiteral("Drives"), QStringLiteral("M"), QStringLiteral("/no/such/mount/point"));
    ASSERT_TRUE(Start());
    monitor.Init();
    EXPECT_EQ(monitor.LblPath->text(), QStringLiteral("/"));
    EXPECT_EQ(monitor.LblIsReady->text(), QStringLiteral("True"));

    for (const char* letter : {"Q", "M"}) {
        monitor.SetDrive(QString::fromLatin1(letter));
        EXPECT_EQ(monitor.LblIsReady->text(), QStringLiteral("False")) << letter;
        EXPECT_EQ(monitor.LblPercent->text(), QStringLiteral("0%")) << letter;
        EXPECT_TRUE(monitor.LblTotalSize->text().isEmpty()) << letter;
    }
    EXPECT_EQ(LogText().count(QStringLiteral("ERROR: ")), 0);
}

#include "test_FrmGeneric.moc"
