// Pictures of the panels in their telling states, for a person to look at
// (build/screenshots/Editing*.png). Each picture must be written.
#include "EditingTest.h"
#include "ScriptedRecorder.h"
#include "editing/IFCartEraser.h"
#include "editing/IFCartIDSelector.h"
#include "editing/IFCartRecorder.h"
#include "shell/modGlobals.h"
#include "support/Photograph.h"
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTest>

TEST_F(EditingTest, PhotographsOfTheRecorderTheEraserAndTheIDSelector)
{
    QWidget sheet;
    sheet.setStyleSheet(QStringLiteral("background: #20232a;"));
    auto* row = new QHBoxLayout(&sheet);
    auto recorder = std::make_shared<ScriptedRecorder>();
    auto* stopped = new IFCartRecorder(&sheet);
    auto* recording = new IFCartRecorder(&sheet);
    auto* paused = new IFCartRecorder(&sheet);
    for (IFCartRecorder* panel : {stopped, recording, paused}) {
        panel->setFixedSize(panel->sizeHint());
        row->addWidget(panel);
    }
    auto blank = std::make_shared<ScriptedRecorder>();
    blank->ShowTape(iCartRecorder::Proposed, QStringLiteral("TMP"), QStringLiteral("Morning show"));
    stopped->SetCartRecorder(blank);
    stopped->Init();
    recorder->ShowTape(iCartRecorder::Loaded, QStringLiteral("NEW0004"), QStringLiteral("Interview with the mayor"));
    recorder->Become(iCartRecorder::Recording);
    recorder->Tick(QStringLiteral("00:01:27"));
    recording->SetCartRecorder(recorder);
    recording->Init();
    auto still = std::make_shared<ScriptedRecorder>();
    still->ShowTape(iCartRecorder::Loaded, QStringLiteral("NEW0005"), QStringLiteral("Weather"));
    still->Become(iCartRecorder::Paused);
    paused->SetCartRecorder(still);
    paused->Init();
    paused->TmrTitle_Timer();
    sheet.show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(Photograph(&sheet, QStringLiteral("EditingRecorders")));

    QWidget erasers;
    erasers.setStyleSheet(QStringLiteral("background: #20232a;"));
    auto* line = new QHBoxLayout(&erasers);
    qint64 now = 0;
    std::array<IFCartEraser*, 3> panels{};
    for (IFCartEraser*& panel : panels) {
        panel = new IFCartEraser(&erasers);
        panel->setFixedSize(panel->sizeHint());
        panel->SetClock([&now] { return now; });
        line->addWidget(panel);
    }
    panels[1]->Drop(QStringLiteral("MUS0001"));
    panels[2]->Drop(QStringLiteral("JIN0001"));
    panels[2]->CmdErase_MouseDown();
    now = 3000;
    panels[2]->TmrErase_Timer();
    erasers.show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(Photograph(&erasers, QStringLiteral("EditingErasers")));
    panels[2]->CmdErase_MouseUp();

    modGlobals::SetRecordsets();
    LoginAs(QStringLiteral("PRESENTER"), QStringLiteral("onair"));
    {
        IFCartIDSelector selector;
        selector.SetMode(IFCartIDSelector::SaveMode);
        selector.SetDescMode(true);
        selector.SetSelectedID(QStringLiteral("NEW0001"));
        selector.resize(820, 560);
        selector.show();
        QCoreApplication::processEvents();
        EXPECT_TRUE(Photograph(&selector, QStringLiteral("EditingIDSelector")));
    }
    Globals::Data().Close();
}
