// Pictures of the deck in each status, written to screenshots/deck-<status>.png of the build
// folder for a person to look at.
#include "DeckTest.h"
#include "shell/Theme.h"
#include <QDir>

namespace {
void Photograph(QWidget* widget, const QString& name)
{
    const QString folder = QStringLiteral(KORVANE_BUILD_DIR "/screenshots");
    QDir().mkpath(folder);
    QApplication::processEvents();
    EXPECT_TRUE(widget->grab().save(folder + QStringLiteral("/deck-") + name + QStringLiteral(".png")));
}

class DeckPictures : public ExpiringDeckTest
{
protected:
    void SetUp() override
    {
        ExpiringDeckTest::SetUp();
        Theme::Apply(*qApp);
    }

    void TearDown() override
    {
        qApp->setStyleSheet(QString());
        ExpiringDeckTest::TearDown();
    }

    void Meter(int reads)
    {
        for (int i = 0; i < reads; ++i) {
            AdvanceMs(15);
            deck->TmrVumeter_Timer();
        }
    }
};
}

TEST_F(DeckPictures, EveryStatus)
{
    IFCartPlayer& deck = Deck();
    deck.resize(567, 300);
    Photograph(&deck, QStringLiteral("ready"));

    Player()->Load(Cart(QStringLiteral("MUS0001")));
    Photograph(&deck, QStringLiteral("cued"));

    QTest::mousePress(Button("CmdFF"), Qt::LeftButton);
    Photograph(&deck, QStringLiteral("cueing"));
    QTest::mouseRelease(Button("CmdFF"), Qt::LeftButton);
    AdvanceMs(300);
    Photograph(&deck, QStringLiteral("cued-recue"));

    Player()->Recue();
    Fader()->setValue(-6);
    Press(Button("CmdPlay"));
    Meter(3);
    deck.iCartPlayer_StatusChanged(DeckStatus::Playing);
    Photograph(&deck, QStringLiteral("playing"));

    Player()->Pause();
    AdvanceMs(10);
    Photograph(&deck, QStringLiteral("paused"));

    Player()->Pause();
    Meter(2);
    Photograph(&deck, QStringLiteral("expiring"));

    AdvanceMs(1000);
    deck.SetTriplePlayMode(true);
    Player()->Load(Cart(QStringLiteral("PUB0002")));
    Tool("CmdPlayMid")->click();
    Meter(2);
    Photograph(&deck, QStringLiteral("triple-play"));
}
