// The recorder panel over a scripted recorder: its tables, the title line that alternates while
// recording, the new cassette of the blank tapes' family, the buttons in each state, Blank and
// the drops. The kernel's own recorder is exercised end to end elsewhere.
#include "EditingTest.h"
#include "ScriptedRecorder.h"
#include "editing/IFCartRecorder.h"
#include "editing/RecorderTable.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include "kernelapi/iFamilies.h"
#include "shell/components/CComponent.h"
#include <QCoreApplication>
#include <QTest>

namespace {
using Command = RecorderTable::Command;
using Button = RecorderTable::Button;

class RecorderTest : public EditingTest
{
protected:
    void SetUp() override
    {
        EditingTest::SetUp();
        LoginAs(QStringLiteral("PRESENTER"), QStringLiteral("onair"));
        panel = std::make_unique<IFCartRecorder>();
        panel->resize(panel->sizeHint());
        panel->show();
        panel->SetCartRecorder(recorder);
        panel->Init();
    }
    void TearDown() override
    {
        panel.reset();
        EditingTest::TearDown();
    }

    QString Title() const { return panel->LblTitle->Text(); }
    QString Time() const { return panel->LblTime->Text(); }
    static void Click(UCButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    // Whatever the host answers when Blank asks for a tape.
    void AnswerBlank(const QString& familyID, const QString& cartID)
    {
        QObject::connect(panel.get(), &IFCartRecorder::RequestBlankTape, panel.get(),
                         [familyID, cartID](QString& family, QString& cart) {
                             family = familyID;
                             cart = cartID;
                         },
                         Qt::DirectConnection);
    }

    std::shared_ptr<ScriptedRecorder> recorder = std::make_shared<ScriptedRecorder>();
    std::unique_ptr<IFCartRecorder> panel;
};
}

TEST(RecorderTableRows, PicturesLooksAndTheButtonsInEachState)
{
    EXPECT_STREQ(RecorderTable::LoadPicture(0), "Free");
    EXPECT_STREQ(RecorderTable::LoadPicture(1), "Proposed");
    EXPECT_STREQ(RecorderTable::LoadPicture(2), "Loaded");
    EXPECT_EQ(RecorderTable::LoadPicture(3), nullptr);
    EXPECT_EQ(RecorderTable::RecordingLook(-1), nullptr);
    EXPECT_EQ(RecorderTable::RecordingLook(1)->background, qRgb(192, 128, 128));
    EXPECT_TRUE(RecorderTable::RecordingLook(2)->recDown && RecorderTable::RecordingLook(2)->pauseDown);
    EXPECT_EQ(RecorderTable::Actions(Button::Rec, 0), QList<Command>({Command::Record}));
    EXPECT_EQ(RecorderTable::Actions(Button::Rec, 2), QList<Command>({Command::Stop}));
    EXPECT_EQ(RecorderTable::Actions(Button::Pause, 0), QList<Command>({Command::Record, Command::Pause}));
    EXPECT_EQ(RecorderTable::Actions(Button::Pause, 1), QList<Command>({Command::Pause}));
    EXPECT_EQ(RecorderTable::Actions(Button::Pause, 2), QList<Command>({Command::Resume}));
    EXPECT_TRUE(RecorderTable::Actions(Button::Rec, 5).isEmpty());
    EXPECT_TRUE(RecorderTable::Actions(Button::Pause, -1).isEmpty());
}

TEST_F(RecorderTest, AStoppedBlankTapeOfTheTemporaryFamilyIsANewCassette)
{
    ASSERT_EQ(panel->TemporaryFamilyID(), QStringLiteral("TMP"));
    recorder->ShowTape(iCartRecorder::Proposed, QStringLiteral("TMP"), QStringLiteral("Morning show"));
    EXPECT_EQ(Title(), QStringLiteral("New Cassette"));
    EXPECT_EQ(Time(), QStringLiteral("Morning show")) << "stopped, the lower line shows the title";
    EXPECT_EQ(panel->LoadStatePicture(), QStringLiteral("Proposed"));
    recorder->ShowTape(iCartRecorder::Loaded, QStringLiteral("NEW0004"), QStringLiteral("Interview"));
    EXPECT_EQ(Title(), QStringLiteral("NEW0004"));
    EXPECT_EQ(panel->LoadStatePicture(), QStringLiteral("Loaded"));
}

TEST_F(RecorderTest, WhileRecordingTheTitleLineAlternatesEachSecond)
{
    recorder->ShowTape(iCartRecorder::Loaded, QStringLiteral("NEW0004"), QStringLiteral("Interview"));
    Click(panel->CmdRec);
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("Record"));
    EXPECT_EQ(panel->RecordingStatePicture(), QStringLiteral("Recording"));
    EXPECT_EQ(panel->BackColor(), QColor(192, 128, 128));
    EXPECT_TRUE(panel->CmdRec->IsPressed());
    EXPECT_FALSE(panel->CmdPause->IsPressed());
    EXPECT_EQ(panel->TmrTitle().interval(), 1000);
    EXPECT_TRUE(panel->TmrTitle().isActive());

    const QString first = Title();
    panel->TmrTitle_Timer();
    const QString second = Title();
    panel->TmrTitle_Timer();
    EXPECT_EQ(QStringList({first, second}).count(QStringLiteral("NEW0004")), 1);
    EXPECT_EQ(QStringList({first, second}).count(QStringLiteral("Interview")), 1);
    EXPECT_EQ(Title(), first);

    recorder->Tick(QStringLiteral("00:00:07"));
    EXPECT_EQ(Time(), QStringLiteral("00:00:07")) << "the time goes straight to its line";
    Click(panel->CmdRec);
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("Stop"));
    EXPECT_EQ(panel->BackColor(), QColor(192, 192, 192));
    EXPECT_EQ(Title(), QStringLiteral("NEW0004")) << "stopped, the name stays whatever the timer says";
    panel->TmrTitle_Timer();
    EXPECT_EQ(Title(), QStringLiteral("NEW0004"));
}

TEST_F(RecorderTest, PauseOnAStoppedRecorderArmsItWithoutRunning)
{
    QList<qint32> seen;
    QObject::connect(recorder.get(), &iCartRecorder::RecordingStateChanged, panel.get(), [&](qint32 state) { seen << state; });
    recorder->ShowTape(iCartRecorder::Loaded, QStringLiteral("NEW0004"), QStringLiteral("Interview"));
    Click(panel->CmdPause);
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder->calls, QStringList({"Record", "Pause"}));
    EXPECT_EQ(seen, QList<qint32>({iCartRecorder::Paused}));
    EXPECT_EQ(panel->RecordingStatePicture(), QStringLiteral("Paused"));
    EXPECT_TRUE(panel->CmdRec->IsPressed());
    EXPECT_TRUE(panel->CmdPause->IsPressed());
    EXPECT_EQ(panel->BackColor(), QColor(192, 192, 192));

    Click(panel->CmdPause);
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("Resume"));
    EXPECT_EQ(panel->RecordingStatePicture(), QStringLiteral("Recording"));
    Click(panel->CmdPause);
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("Pause"));
    Click(panel->CmdRec);
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("Stop"));
    EXPECT_FALSE(panel->CmdRec->IsPressed());
    EXPECT_FALSE(panel->CmdPause->IsPressed());
}

TEST_F(RecorderTest, BlankLoadsWhatTheHostNames)
{
    AnswerBlank(QString(), QStringLiteral("MUS0001"));
    Click(panel->CmdBlank);
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("Load MUS0001"));
}

TEST_F(RecorderTest, BlankProposesANewCartOnlyWhereTheUserMayWrite)
{
    AnswerBlank(QStringLiteral("NEW"), QString());
    Click(panel->CmdBlank);
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("LoadBlank NEW"));
    EXPECT_EQ(panel->LoadStatePicture(), QStringLiteral("Proposed"));
}

TEST_F(RecorderTest, BlankEjectsForAFamilyWithoutWriteRightOrNoAnswer)
{
    AnswerBlank(QStringLiteral("MUS"), QString());
    Click(panel->CmdBlank);
    EXPECT_EQ(recorder->calls, QStringList({"Eject"}));
    auto silent = std::make_unique<IFCartRecorder>();
    silent->SetCartRecorder(recorder);
    QTest::mouseClick(silent->CmdBlank, Qt::LeftButton);
    EXPECT_EQ(recorder->calls, QStringList({"Eject", "Eject"})) << "a host that names nothing ejects";
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
}

TEST_F(RecorderTest, DropsLoadTheCartAndEjectLetsItGo)
{
    panel->Drop(QStringLiteral("JIN0001"));
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("Load JIN0001"));
    auto source = std::make_shared<CComponent>();
    source->SetShareType(CComponent::ShareCart);
    source->SetSharedObject(Cart(QStringLiteral("MUS0001")));
    panel->Component()->RaiseEventDragDrop(source);
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("Load MUS0001"));
    EXPECT_EQ(Title(), QStringLiteral("MUS0001"));
    Click(panel->CmdEject);
    EXPECT_EQ(recorder->calls.last(), QStringLiteral("Eject"));
    EXPECT_EQ(panel->LoadStatePicture(), QStringLiteral("Free"));
}

TEST_F(RecorderTest, WithoutARecorderThePanelIsEmptyAndInitSaysSo)
{
    recorder->ShowTape(iCartRecorder::Loaded, QStringLiteral("NEW0004"), QStringLiteral("Interview"));
    panel->SetCartRecorder(nullptr);
    EXPECT_EQ(Title(), QString());
    EXPECT_EQ(Time(), QString());
    recorder->ShowTape(iCartRecorder::Loaded, QStringLiteral("MUS0001"), QStringLiteral("Song"));
    EXPECT_EQ(Title(), QString()) << "a released recorder reaches the panel no more";
    Click(panel->CmdRec);
    Click(panel->CmdEject);
    EXPECT_EQ(recorder->calls, QStringList({}));
    panel->Init();
    ASSERT_EQ(log->Errors().size(), 1);
    EXPECT_TRUE(log->Errors().first().endsWith(QStringLiteral("I was called with no valid cartrecorder")));
}

TEST_F(RecorderTest, BoundByNameToTheRecordingChannelItBindsOrWarnsButNeverFails)
{
    IFCartRecorder byName;
    byName.SetChannelName(QStringLiteral("Rec"));
    byName.SetStreamIndex(1);
    EXPECT_TRUE(log->Errors().isEmpty()) << log->Errors().join('\n').toStdString();
    if (!byName.CartRecorder())
        EXPECT_FALSE(log->lines.filter(QStringLiteral("WARN IFCartRecorder.BindByName")).isEmpty());
}

TEST_F(RecorderTest, APanelBoundToARunningRecorderShowsItsTimeAtOnce)
{
    auto running = std::make_shared<ScriptedRecorder>();
    running->ShowTape(iCartRecorder::Loaded, QStringLiteral("NEW0004"), QStringLiteral("Interview"));
    running->Become(iCartRecorder::Recording);
    running->Tick(QStringLiteral("00:01:27"));
    panel->SetCartRecorder(running);
    panel->Init();
    EXPECT_EQ(Time(), QStringLiteral("00:01:27"));
    EXPECT_EQ(panel->RecordingStatePicture(), QStringLiteral("Recording"));
    EXPECT_EQ(QStringList({"NEW0004", "Interview"}).count(Title()), 1);
}
