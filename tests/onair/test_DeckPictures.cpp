// Pictures of the deck in each status, written to build/screenshots/deck-<status>.png for a
// person to look at.
#include "DeckTest.h"
#include "shell/Theme.h"
#include "support/Photograph.h"

namespace {
template <class Base> class Pictures : public Base
{
protected:
    void SetUp() override
    {
        Base::SetUp();
        Theme::Apply(*qApp);
    }

    void TearDown() override
    {
        qApp->setStyleSheet(QString());
        Base::TearDown();
    }

    IFCartPlayer& Deck()
    {
        IFCartPlayer& deck = Base::Deck();
        deck.resize(567, 300);
        return deck;
    }

    // Plays on for a while, the meter reading as it goes.
    void Run(int ms)
    {
        for (int done = 0; done < ms; done += 15) {
            this->AdvanceMs(15);
            this->deck->TmrVumeter_Timer();
        }
    }

    void Photograph(const char* status)
    {
        QApplication::processEvents();
        EXPECT_TRUE(::Photograph(this->deck.get(), QStringLiteral("deck-") + QLatin1String(status)));
    }
};

using DeckPictures = Pictures<DeckTest>;
using ExpiringDeckPictures = Pictures<ExpiringDeckTest>;
}

TEST_F(DeckPictures, EveryStatus)
{
    Deck();
    Photograph("ready");

    Player()->Load(Cart(QStringLiteral("MUS0001")));
    Photograph("cued");

    QTest::mousePress(Button("CmdFF"), Qt::LeftButton);
    Photograph("cueing");
    QTest::mouseRelease(Button("CmdFF"), Qt::LeftButton);
    AdvanceMs(300);
    Photograph("cued-recue");

    Player()->Recue();
    Fader()->setValue(-6);
    Press(Button("CmdPlay"));
    Run(120);
    Photograph("playing");

    Player()->Pause();
    Run(30);
    Photograph("paused");

    Player()->Pause();
    Run(1000);
    deck->SetTriplePlayMode(true);
    Player()->Load(Cart(QStringLiteral("PUB0002")));
    Tool("CmdPlayMid")->click();
    Run(30);
    Photograph("triple-play");
}

TEST_F(ExpiringDeckPictures, Expiring)
{
    Deck();
    deck->PlayByID(QStringLiteral("PUB0001"));
    Run(60);
    Photograph("expiring");
}
