// The component registry, the event processor and the rectangle question.
#include "shell/InputRectangle.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "shell/components/CComponent.h"
#include "shell/components/CComponents.h"
#include "shell/components/CEventProcessor.h"
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {
// A control with events of its own, as a disc controller has.
class EventSource : public QObject
{
    Q_OBJECT
Q_SIGNALS:
    void UnitChanged(int unit);
    void Ejected();
};

std::shared_ptr<CComponent> Component(CComponents& registry, const QString& name, qint32 type)
{
    auto component = std::make_shared<CComponent>();
    registry.Add(name, component, type);
    return component;
}

struct Matches
{
    QStringList events, newNames;
    void Listen(CEventProcessor& processor)
    {
        QObject::connect(&processor, &CEventProcessor::Match, [this](const QString& event, std::shared_ptr<CData> data) {
            events << event;
            newNames << data->Value().toString();
        });
    }
};
}

TEST(Components, MakeUniqueTakesTheFirstFreeNumberedNameAndKeepsTheCallersObject)
{
    CComponents registry;
    Component(registry, QStringLiteral("X"), CComponents::MakeUnique);
    Component(registry, QStringLiteral("X2"), CComponents::MakeUnique);
    auto third = std::make_shared<CComponent>();
    CComponent* before = third.get();
    EXPECT_TRUE(registry.Add(QStringLiteral("X"), third, CComponents::MakeUnique));
    EXPECT_EQ(third->Name(), QStringLiteral("X3"));
    EXPECT_EQ(third.get(), before);
    EXPECT_EQ(registry.Item(2), third);
    EXPECT_TRUE(registry.NameExists(QStringLiteral("X3")));
    EXPECT_FALSE(registry.NameExists(QStringLiteral("x3"))) << "names compare exactly";
}

TEST(Components, OneOnlyRefusesATakenNameAndOtherShareTypesAddNothing)
{
    CComponents registry;
    Component(registry, QStringLiteral("CartPlayer"), CComponents::OneOnly);
    auto second = std::make_shared<CComponent>();
    second->SetName(QStringLiteral("mine"));
    EXPECT_FALSE(registry.Add(QStringLiteral("CartPlayer"), second, CComponents::OneOnly));
    EXPECT_EQ(second->Name(), QStringLiteral("mine"));
    EXPECT_FALSE(registry.Add(QStringLiteral("Other"), second, 7));
    EXPECT_EQ(registry.Count(), 1);
    registry.Remove(QStringLiteral("CartPlayer"));
    EXPECT_TRUE(registry.NameExists(QStringLiteral("CartPlayer"))) << "a component stays until the program ends";
}

TEST(Components, APropertyChangesRaiseOneEventEachAndTheSameValueRaisesNothing)
{
    CComponent component;
    QSignalSpy changed(&component, &CComponent::ChangedProperty);
    QWidget control;
    auto shared = std::make_shared<QObject>();
    component.SetName(QStringLiteral("Deck"));
    component.SetShareType(CComponent::ShareCart);
    component.SetControl(&control);
    component.SetSharedObject(shared);
    EXPECT_EQ(changed.count(), 4);
    component.SetName(QStringLiteral("Deck"));
    component.SetShareType(CComponent::ShareCart);
    component.SetControl(&control);
    component.SetSharedObject(shared);
    EXPECT_EQ(changed.count(), 4);
}

TEST(EventProcessor, ATriggerMatchesItsEventInAnyCaseAndTheFirstMatchWins)
{
    EventSource source;
    CEventProcessor processor;
    Matches matches;
    matches.Listen(processor);
    processor.SetSource(&source);
    processor.AddTrigger(QStringLiteral("unitchanged"), QStringLiteral("LoadUnit"));
    processor.AddTrigger(QStringLiteral("UNITCHANGED"), QStringLiteral("Never"));
    processor.AddTrigger(QStringLiteral("Ejected"));
    Q_EMIT source.UnitChanged(2);
    Q_EMIT source.Ejected();
    EXPECT_EQ(matches.events, (QStringList{QStringLiteral("UnitChanged"), QStringLiteral("Ejected")}));
    EXPECT_EQ(matches.newNames, (QStringList{QStringLiteral("LoadUnit"), QStringLiteral("Ejected")}))
        << "an empty new name is the event's own name";
}

TEST(EventProcessor, EventsWithoutATriggerAndEventsOfAFormerSourceRaiseNothing)
{
    EventSource first, second;
    CEventProcessor processor;
    Matches matches;
    matches.Listen(processor);
    processor.AddTrigger(QStringLiteral("UnitChanged"));
    processor.SetSource(&first);
    Q_EMIT first.Ejected();
    processor.SetSource(&second);
    Q_EMIT first.UnitChanged(1);
    EXPECT_TRUE(matches.events.isEmpty());
    Q_EMIT second.UnitChanged(1);
    EXPECT_EQ(matches.events, QStringList{QStringLiteral("UnitChanged")});
    EXPECT_EQ(processor.TriggerCount(), 1);
}

TEST(InputRectangle, ReadsFourWholeNumbersWithAPositiveSize)
{
    EXPECT_EQ(InputRectangle::Parse(QStringLiteral(" 600, 300,4800 1200 ")), QRect(600, 300, 4800, 1200));
    EXPECT_EQ(InputRectangle::Parse(QStringLiteral("-15;0;15;15")), QRect(-15, 0, 15, 15));
    for (const char* bad : {"", "1, 2, 3", "1, 2, 3, 4, 5", "1, 2, 0, 4", "1, 2, 3, -4", "a, 2, 3, 4", "1.5, 2, 3, 4"})
        EXPECT_FALSE(InputRectangle::Parse(QString::fromLatin1(bad))) << bad;
}

class InputRectangleAsk : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto scripted = std::make_unique<ScriptedDialogs>();
        dialogs = scripted.get();
        Dialogs::SetHandler(std::move(scripted));
    }
    ScriptedDialogs* dialogs = nullptr;
};

TEST_F(InputRectangleAsk, AsksAgainAfterABadAnswerAndGivesNothingWhenCancelled)
{
    dialogs->inputs = {QStringLiteral("wide"), QStringLiteral("15, 30, 150, 300")};
    EXPECT_EQ(InputRectangle::Ask(QStringLiteral("Deck1"), QRect(0, 0, 10, 10)), QRect(15, 30, 150, 300));
    ASSERT_EQ(dialogs->prompts.size(), 2);
    EXPECT_TRUE(dialogs->prompts.at(1).startsWith(QStringLiteral("Four whole numbers")));

    dialogs->inputs = {std::nullopt};
    EXPECT_FALSE(InputRectangle::Ask(QStringLiteral("Deck1"), QRect(0, 0, 10, 10)));
}

TEST_F(InputRectangleAsk, NobodyAtTheScreenTakesTheProposalOrASizedOneWhenItHasNoSize)
{
    EXPECT_EQ(InputRectangle::Ask(QStringLiteral("Deck1"), QRect(60, 90, 1500, 600)), QRect(60, 90, 1500, 600));
    EXPECT_EQ(InputRectangle::Ask(QStringLiteral("Deck1"), QRect(60, 90, 0, 0)), QRect(QPoint(60, 90), InputRectangle::DefaultSize));
}

#include "test_Components.moc"
