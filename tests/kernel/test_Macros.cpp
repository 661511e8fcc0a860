#include "test_CartsFixture.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iMacroItem.h"
#include "kernelapi/iObjectWithProperties.h"

namespace {
QStringList EntryIDs(const iMacro& macro)
{
    QStringList ids;
    for (int i = 1; i <= macro.Count(); ++i)
        ids << (macro.Item(i)->Cart() ? macro.Item(i)->Cart()->ID() : QStringLiteral("-"));
    return ids;
}
}

class MacrosTest : public CartWorldTest
{
protected:
    QStringList StoredSteps(const QString& macroID) const
    {
        const auto db = OpenData(SoundDb);
        QSqlQuery query = db->Query(QStringLiteral("SELECT SoundID FROM RMacro WHERE MacroID = ? ORDER BY [Index]"), {macroID});
        QStringList steps;
        while (query.next())
            steps << (query.value(0).isNull() ? QStringLiteral("-") : query.value(0).toString());
        return steps;
    }

    // Answers the save requests of a macro with the given texts and counts them.
    void Answer(iMacro& macro, const QString& name, const QString& description)
    {
        QObject::connect(&macro, &iMacro::RequestNameToSave, [this, name](QString* answer) {
            ++nameRequests;
            *answer = name;
        });
        QObject::connect(&macro, &iMacro::RequestDescriptionToSave, [this, description](QString* answer) {
            ++descriptionRequests;
            *answer = description;
        });
    }

    int nameRequests = 0;
    int descriptionRequests = 0;
};

TEST_F(MacrosTest, StoredMacrosLoadTheirStepsInOrder)
{
    const auto macro = carts->NewMacro();
    macro->LoadByID(QStringLiteral("PAU0001"));
    EXPECT_EQ(EntryIDs(*macro), QStringList({"CON0002", "PUB0001", "PUB0002", "PUB0003", "JIN0002"}));
    EXPECT_EQ(macro->Cart(), carts->Cart(QStringLiteral("PAU0001")));
    EXPECT_EQ(macro->Item(2)->Cart(), carts->Cart(QStringLiteral("PUB0001")));
    EXPECT_EQ(macro->Item(2)->Properties()->Property(QStringLiteral("Index")).toInt(), 1);
    EXPECT_THROW(macro->Item(6), KernelError);

    EXPECT_THROW(carts->NewMacro()->LoadByID(QStringLiteral("JIN0001")), KernelError) << "a sound cart is no macro";
    EXPECT_THROW(carts->NewMacro()->LoadByID(QStringLiteral("MES9999")), KernelError);
    EXPECT_THROW(kernel->MacroByID(QStringLiteral("PAU")), KernelError);
    const auto live = kernel->MacroByID(QStringLiteral("MES0001"));
    EXPECT_EQ(kernel->MacroByID(QStringLiteral("MES0001")), live);
    EXPECT_EQ(live->Count(), 3);

    // A step that names no cart ID loads as an unknown cart, with a warning.
    Run(SoundDb, QStringLiteral("INSERT INTO RMacro (MacroID, [Index], SoundID) VALUES ('MES0002', 4, 'bad id')"));
    macro->LoadByID(QStringLiteral("MES0002"));
    ASSERT_EQ(macro->Count(), 4);
    EXPECT_EQ(macro->Item(4)->Cart()->Type(), CartType::Unknown);
}

TEST_F(MacrosTest, SavingAsksForWhatIsMissingAndWritesCartAndStepsTogether)
{
    const auto macro = carts->NewMacro();
    Answer(*macro, QStringLiteral("mes0010"), QStringLiteral("My hour"));
    macro->Clear();
    macro->Add(carts->Cart(QStringLiteral("JIN0001")), nullptr);
    macro->Add(nullptr, nullptr);
    const auto entry = carts->NewCart();
    entry->SetID(QStringLiteral("MUS0002"));
    macro->Add(entry, entry->Properties());
    macro->Save(QString());
    EXPECT_EQ(nameRequests, 1);
    EXPECT_EQ(descriptionRequests, 1);
    EXPECT_EQ(StoredSteps(QStringLiteral("MES0010")), QStringList({"JIN0001", "-", "MUS0002"}));
    const auto cart = carts->Cart(QStringLiteral("MES0010"));
    EXPECT_EQ(cart->Type(), CartType::Macro);
    EXPECT_EQ(cart->Description(), QStringLiteral("My hour"));
    // A bare cart that names an entry stands for the catalogue's cart of that ID.
    EXPECT_EQ(macro->Item(3)->Cart(), carts->Cart(QStringLiteral("MUS0002")));
    EXPECT_EQ(macro->Item(3)->Cart()->Type(), CartType::Sound);
    EXPECT_GT(carts->Cart(QStringLiteral("MUS0002"))->Time(), 0);
    EXPECT_EQ(cart->Time(), carts->Cart(QStringLiteral("JIN0001"))->Time() + carts->Cart(QStringLiteral("MUS0002"))->Time());
    EXPECT_EQ(families->Item(QStringLiteral("MES"))->Count(), 4);

    // Saved again with other steps and a new description: no question asked.
    macro->RemoveAll();
    macro->Add(carts->Cart(QStringLiteral("NEW0001")), nullptr);
    macro->Save(QStringLiteral("News hour"));
    EXPECT_EQ(nameRequests, 1);
    EXPECT_EQ(descriptionRequests, 1);
    EXPECT_EQ(StoredSteps(QStringLiteral("MES0010")), QStringList({"NEW0001"}));
    EXPECT_EQ(cart->Description(), QStringLiteral("News hour")) << "the live cart reads the save";

    const auto reloaded = Reopen()->Carts()->NewMacro();
    reloaded->LoadByID(QStringLiteral("MES0010"));
    EXPECT_EQ(EntryIDs(*reloaded), QStringList({"NEW0001"}));
}

TEST_F(MacrosTest, AnEmptyAnswerCancelsTheSave)
{
    const auto unnamed = carts->NewMacro();
    Answer(*unnamed, QString(), QStringLiteral("Never asked"));
    unnamed->Add(carts->Cart(QStringLiteral("JIN0001")), nullptr);
    unnamed->Save(QString());
    EXPECT_EQ(nameRequests, 1);
    EXPECT_EQ(descriptionRequests, 0);
    EXPECT_TRUE(unnamed->Cart()->ID().isEmpty());

    const auto undescribed = carts->NewMacro();
    Answer(*undescribed, QStringLiteral("MES0011"), QString());
    undescribed->Add(carts->Cart(QStringLiteral("JIN0001")), nullptr);
    undescribed->Save(QString());
    EXPECT_EQ(descriptionRequests, 1);
    EXPECT_TRUE(undescribed->Cart()->ID().isEmpty()) << "a cancelled save leaves the macro as it was";
    EXPECT_FALSE(carts->Exists(QStringLiteral("MES0011")));
    EXPECT_TRUE(StoredSteps(QStringLiteral("MES0011")).isEmpty());
}

TEST_F(MacrosTest, AMacroNeverOverwritesACartOfAnotherType)
{
    const auto macro = carts->NewMacro();
    macro->Cart()->SetID(QStringLiteral("JIN0001"));
    macro->Add(carts->Cart(QStringLiteral("JIN0002")), nullptr);
    EXPECT_THROW(macro->Save(QStringLiteral("Overwrite")), KernelError);
    EXPECT_EQ(carts->Cart(QStringLiteral("JIN0001"))->Type(), CartType::Sound);
    EXPECT_TRUE(StoredSteps(QStringLiteral("JIN0001")).isEmpty());

    const auto bad = carts->NewMacro();
    bad->Cart()->SetID(QStringLiteral("MES0012"));
    const auto entry = carts->NewCart();
    entry->SetID(QStringLiteral("not an id"));
    bad->Add(entry, nullptr);
    EXPECT_THROW(bad->Save(QStringLiteral("Bad entry")), KernelError);
    EXPECT_FALSE(carts->Exists(QStringLiteral("MES0012")));
}
