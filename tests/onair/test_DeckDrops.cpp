// What reaches the deck from outside: the host's answer to Play on an empty player, carts
// dropped by the drag protocol, by ID and from the desktop, the popup menu and the tool tip.
#include "DeckTest.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iPlayLists.h"
#include "shell/components/CComponent.h"
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QUrl>

using namespace DeckStatus;

namespace {
// Sends a drag over and a drop of the data to a widget; gives the drop's action.
Qt::DropAction DropOn(QWidget* widget, QMimeData* data, Qt::DropAction* overAction = nullptr)
{
    const QPoint at = widget->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &enter);
    if (overAction)
        *overAction = enter.isAccepted() ? enter.dropAction() : Qt::IgnoreAction;
    QDropEvent drop(at, Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &drop);
    return drop.dropAction();
}

void HoverOver(QWidget* widget)
{
    const QPointF at = widget->rect().center();
    QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}
}

TEST_F(DeckTest, PlayOnAnEmptyPlayerAsksTheHostAndPlaysWhatItAnswers)
{
    IFCartPlayer& deck = Deck();
    QVariant answer;
    int asked = 0;
    QObject::connect(&deck, &IFCartPlayer::UserRequestToPlay, &deck, [&](QVariant& requested) {
        ++asked;
        requested = answer;
    });

    Press(Button("CmdPlay"));
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(Player()->Loaded()) << "no answer, nothing plays";
    EXPECT_TRUE(log->lines.isEmpty()) << log->lines.join('\n').toStdString();

    answer = QVariant::fromValue(Cart(QStringLiteral("JIN0001")));
    Press(Button("CmdPlay"));
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), Playing);
    EXPECT_EQ(Player()->Cart(), Cart(QStringLiteral("JIN0001")));
    AdvanceMs(1000);
    Player()->Eject();

    answer = QStringLiteral("JIN0002");
    Press(Button("CmdPlay"));
    AdvanceMs(10);
    EXPECT_EQ(Player()->Cart(), Cart(QStringLiteral("JIN0002")));
    AdvanceMs(1000);
    Player()->Eject();

    answer = QVariant::fromValue(kernel->PlayLists()->Item(1));
    Press(Button("CmdPlay"));
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), Playing) << "a playlist answer plays its first row";
    Player()->Eject();
    EXPECT_EQ(asked, 4);
    EXPECT_TRUE(log->lines.isEmpty()) << log->lines.join('\n').toStdString();
}

TEST_F(DeckTest, AnAnswerThatIsNoCartPlaysNothingAndTheDeckStaysUsable)
{
    IFCartPlayer& deck = Deck();
    QVariant answer = QStringLiteral("JIN0999");
    QObject::connect(&deck, &IFCartPlayer::UserRequestToPlay, &deck, [&](QVariant& requested) { requested = answer; });
    Press(Button("CmdPlay"));
    EXPECT_FALSE(Player()->Loaded());
    ASSERT_EQ(log->Errors().size(), 1);
    EXPECT_TRUE(log->Errors().first().contains(QStringLiteral("JIN0999"))) << log->Errors().first().toStdString();

    answer = 0;
    Press(Button("CmdPlay"));
    EXPECT_TRUE(log->lines.contains(
        QStringLiteral("WARN IFCartPlayer.CmdPlay_Pressed: Received non undestandable Requested Object")));
    answer = 7;
    Press(Button("CmdPlay"));
    EXPECT_EQ(log->lines.size(), 2) << "any other answer is silently nothing";

    deck.PlayByID(QStringLiteral("JIN0001"));
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), Playing);
}

TEST_F(DeckTest, ACartDraggedOntoTheDeckStartsAtOnceAndOtherDragsAreIgnored)
{
    IFCartPlayer& deck = Deck();
    auto family = std::make_shared<CComponent>();
    family->SetShareType(CComponent::ShareFamily);
    deck.Component()->RaiseEventDragDrop(family);
    deck.Component()->RaiseEventDragDrop(nullptr);
    EXPECT_FALSE(Player()->Loaded());

    auto browser = std::make_shared<CComponent>();
    browser->SetName(QStringLiteral("CartBrowser"));
    browser->SetShareType(CComponent::ShareCart);
    browser->SetSharedObject(Cart(QStringLiteral("JIN0002")));
    deck.Component()->RaiseEventDragDrop(browser);
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), Playing);
    EXPECT_EQ(Player()->Cart(), Cart(QStringLiteral("JIN0002")));
    EXPECT_EQ(deck.Component()->Control(), &deck);
    EXPECT_TRUE(log->lines.isEmpty()) << log->lines.join('\n').toStdString();
}

TEST_F(DeckTest, AnOldStyleDropPlaysAnIDAndAnEmptyIDEjects)
{
    IFCartPlayer& deck = Deck();
    deck.Drop(QStringLiteral("JIN0001"), 100, 100);
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), Playing);
    deck.Drop(QString(), 0, 0);
    EXPECT_FALSE(Player()->Loaded());
    deck.Drop(QStringLiteral("XX"), 0, 0);
    EXPECT_EQ(log->Errors().size(), 1) << "a malformed ID is refused by the kernel";
    deck.PlayByID(QStringLiteral("JIN0002"));
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), Playing);
}

TEST_F(DeckTest, DesktopDropsOfNothingOfNoFileAndOfNoCartPlayNothing)
{
    Deck();
    DisplayLabel* title = Label("LblTitle");
    DisplayLabel* status = Label("LblStatus");

    QMimeData nothing;
    Qt::DropAction over = Qt::IgnoreAction;
    EXPECT_EQ(DropOn(title, &nothing, &over), Qt::IgnoreAction);
    EXPECT_EQ(over, Qt::CopyAction) << "drag-over always answers copy";

    QMimeData web;
    web.setUrls({QUrl(QStringLiteral("https://example.org/song.wav"))});
    EXPECT_EQ(DropOn(status, &web), Qt::IgnoreAction) << "files asked for, none given";

    QMimeData words;
    words.setText(QStringLiteral("Hello studio"));
    EXPECT_NE(DropOn(title, &words), Qt::CopyAction);

    QTemporaryDir folder;
    const QString notAudio = folder.filePath(QStringLiteral("notes.txt"));
    QFile file(notAudio);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a sound");
    file.close();
    QMimeData document;
    document.setUrls({QUrl::fromLocalFile(notAudio)});
    DropOn(title, &document);

    EXPECT_FALSE(Player()->Loaded());
    EXPECT_EQ(log->lines.filter(QStringLiteral("IFCartPlayer.OLEDragDrop")).size(), 4)
        << "one line for each refused drop:\n"
        << log->lines.join('\n').toStdString();
    deck->PlayByID(QStringLiteral("JIN0001"));
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), Playing) << "the deck stays usable";
}

TEST_F(DeckTest, TheMenuOfTheLabelsTogglesLoopAndSetsAndSavesVolumes)
{
    IFCartPlayer& deck = Deck();
    deck.PlayByID(QStringLiteral("MUS0001"));
    Fader()->setValue(-7);
    dialogs->popupChoices.push_back(QStringLiteral("IFCartPlayer.Loop"));
    QTest::mousePress(Label("LblTitle"), Qt::RightButton);
    ASSERT_EQ(dialogs->menus.size(), 1);
    QStringList texts;
    for (const auto& line : dialogs->menus.first())
        texts << line.text;
    EXPECT_EQ(texts, QStringList({"-Cart Player", "Loop", "Set volume to 0 dB", "Set volume to cart default", "-Cart",
                                  "Save default volume as -7 dB", "-Cancel", "Cancel"}));
    EXPECT_TRUE(dialogs->menus.first().at(1).checkable);
    EXPECT_FALSE(dialogs->menus.first().at(1).checked) << "Loop unchecked";
    EXPECT_TRUE(Player()->Loop());

    dialogs->popupChoices.push_back(QStringLiteral("IFCartPlayer.SaveDefaultVolume"));
    QTest::mousePress(Label("LblVolume"), Qt::RightButton);
    EXPECT_TRUE(dialogs->menus.last().at(1).checked) << "Loop checked";
    dialogs->popupChoices.push_back(QStringLiteral("IFCartPlayer.VolumeToZero"));
    QTest::mousePress(Label("LblStatus"), Qt::RightButton);
    EXPECT_EQ(Player()->Volume(), 0);
    dialogs->popupChoices.push_back(QStringLiteral("IFCartPlayer.VolumeToCartDefault"));
    QTest::mousePress(Child<QWidget>("ImgStatus"), Qt::RightButton);
    EXPECT_EQ(Player()->Volume(), -7) << "the saved default comes back";
    dialogs->popupChoices.push_back(QStringLiteral("IFCartPlayer.Cancel"));
    QTest::mousePress(Label("LblTitle"), Qt::RightButton);
    EXPECT_EQ(Player()->Volume(), -7);
    EXPECT_EQ(dialogs->menus.size(), 5);
    EXPECT_TRUE(log->lines.isEmpty()) << log->lines.join('\n').toStdString();
}

TEST_F(DeckTest, RestingOverTheDeckWithACartLoadedRaisesToolTip)
{
    IFCartPlayer& deck = Deck();
    std::shared_ptr<iCart> shown;
    QObject::connect(&deck, &IFCartPlayer::ToolTip, &deck, [&](std::shared_ptr<iCart> cart) { shown = cart; });
    HoverOver(Label("LblTitle"));
    EXPECT_FALSE(deck.TmrToolTip().isActive()) << "nothing loaded, nothing to tell";

    Player()->Load(Cart(QStringLiteral("PUB0001")));
    HoverOver(Label("LblVolume"));
    EXPECT_TRUE(deck.TmrToolTip().isActive());
    EXPECT_EQ(deck.TmrToolTip().interval(), 200);
    deck.TmrToolTip_Timer();
    EXPECT_FALSE(deck.TmrToolTip().isActive());
    EXPECT_EQ(shown, Cart(QStringLiteral("PUB0001")));

    shown.reset();
    HoverOver(Child<QWidget>("ElaBackground"));
    Player()->Eject();
    deck.TmrToolTip_Timer();
    EXPECT_EQ(shown, nullptr) << "the cart left before the pointer had rested";
}

TEST_F(DeckTest, ACartIDOrAnAudioFileDroppedFromTheDesktopPlaysWithoutTouchingTheCatalogue)
{
    Deck();
    QMimeData reference;
    reference.setText(QStringLiteral("jin0002 Morning show sweeper"));
    EXPECT_EQ(DropOn(Label("LblTitle"), &reference), Qt::CopyAction);
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), Playing);
    EXPECT_EQ(Player()->Cart()->ID(), QStringLiteral("JIN0002"));

    const QString file = Cart(QStringLiteral("MUS0001"))->Sound()->FileName();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(file), QUrl::fromLocalFile(QStringLiteral("/no/second.wav"))});
    EXPECT_EQ(DropOn(Label("LblStatus"), &files), Qt::CopyAction);
    AdvanceMs(10);
    EXPECT_EQ(Player()->Status(), Playing);
    EXPECT_TRUE(Player()->Cart()->ID().isEmpty()) << "a cart in memory only";
    EXPECT_EQ(Player()->Cart()->Description(), QStringLiteral("[From File]"));
    EXPECT_EQ(Player()->Cart()->Sound()->FileName(), file);
}
