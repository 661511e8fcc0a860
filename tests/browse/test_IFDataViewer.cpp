// The data viewer on the embedded kernel: what it prints for each kind of cart, a family and
// the other sources; IDs that are no carts; the delayed load, the drop and its registration.
#include "BrowseTest.h"
#include "browse/BrowseControls.h"
#include "browse/DataPicture.h"
#include "browse/DataViewerSheet.h"
#include "browse/IFDataViewer.h"
#include "controls/RecordingLogger.h"
#include "foundation/Strings.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iSoundFile.h"
#include "shell/components/CComponent.h"
#include "support/Photograph.h"
#include <QCoreApplication>
#include <QImage>
#include <QTimer>

namespace {
class DataViewerTest : public BrowseTest
{
protected:
    void SetUp() override
    {
        BrowseTest::SetUp();
        viewer = std::make_unique<IFDataViewer>();
        viewer->resize(260, 180);
    }

    std::shared_ptr<iCarts> Carts() const { return kernel->Carts(); }

    // A component as another control offers it.
    static std::shared_ptr<CComponent> Offering(qint32 shareType, std::shared_ptr<QObject> object, const QString& name = QStringLiteral("CartBrowser"))
    {
        auto component = std::make_shared<CComponent>();
        component->SetName(name);
        component->SetShareType(shareType);
        component->SetSharedObject(std::move(object));
        return component;
    }

    // The lines of a cart common to every type, as the catalogue keeps it.
    QStringList CartLines(const QString& id, const QString& type) const
    {
        const std::shared_ptr<iCart> cart = Carts()->Cart(id);
        return {id,
                QStringLiteral("Descripció: ") + cart->Description(),
                QStringLiteral("Comentari: ") + cart->Comment(),
                QStringLiteral("Data Inicial: 01/01/2001"),
                QStringLiteral("Data Final: 01/01/2099"),
                QStringLiteral("Dur Cart: ") + MsToClock(cart->Time()),
                QStringLiteral("Tipus: ") + type};
    }

    std::unique_ptr<IFDataViewer> viewer;
};
}

TEST_F(DataViewerTest, ASoundCartShowsItsFileAndItsLength)
{
    viewer->Drop(QStringLiteral("MUS0001"));
    const std::shared_ptr<iSound> sound = Carts()->Cart(QStringLiteral("MUS0001"))->Sound();
    ASSERT_NE(sound, nullptr);
    ASSERT_NE(sound->SoundFile(), nullptr);
    QStringList expected = CartLines(QStringLiteral("MUS0001"), QStringLiteral("Sound"));
    expected << QStringLiteral("FileName: ") + sound->FileName() << QStringLiteral("Dur File: ") + MsToClock(sound->SoundFile()->Length());
    EXPECT_EQ(viewer->Text(), expected) << "a cart given by ID has no heading";
    EXPECT_EQ(viewer->Text().at(2), QStringLiteral("Comentari: Late night programme theme"));
    EXPECT_NE(sound->SoundFile()->Length(), 0);
    EXPECT_EQ(viewer->CartID(), QStringLiteral("MUS0001"));
    EXPECT_EQ(viewer->Component()->ShareType(), CComponent::ShareCart);
    ASSERT_NE(viewer->Component()->Shared<iCart>(), nullptr);
    EXPECT_EQ(viewer->Component()->Shared<iCart>()->ID(), QStringLiteral("MUS0001"));
}

TEST_F(DataViewerTest, MacroControlAndSeparatorCartsHaveNoFileLines)
{
    const auto spacer = Carts()->NewCart();
    spacer->SetID(QStringLiteral("JIN0010"));
    spacer->SetType(CartType::Separator);
    spacer->SetDescription(QStringLiteral("--- jingles ---"));
    spacer->Save();
    const QVector<std::pair<QString, QString>> kinds{
        {QStringLiteral("MES0001"), QStringLiteral("Macro")},
        {QStringLiteral("CON0001"), QStringLiteral("Control")},
        {QStringLiteral("JIN0010"), QStringLiteral("Separator")}};
    for (const auto& [id, type] : kinds) {
        viewer->Drop(id);
        EXPECT_EQ(viewer->Text(), CartLines(id, type)) << id.toStdString();
    }
    EXPECT_EQ(viewer->Text().at(1), QStringLiteral("Descripció: --- jingles ---"));
}

TEST_F(DataViewerTest, ACartWithDatesOfItsOwnShowsThem)
{
    const auto cart = Carts()->Cart(QStringLiteral("PUB0002"));
    cart->SetStartDate(QDateTime(QDate(2026, 5, 1), QTime(0, 0)));
    cart->SetEndDate(QDateTime(QDate(2026, 5, 31), QTime(23, 30)));
    cart->Save();
    viewer->Drop(QStringLiteral("PUB0002"));
    EXPECT_EQ(viewer->Text().at(3), QStringLiteral("Data Inicial: 01/05/2026"));
    EXPECT_EQ(viewer->Text().at(4), QStringLiteral("Data Final: 31/05/2026 23:30:00"));
}

TEST_F(DataViewerTest, QuotesInTheDescriptionAreShownAsTheyAre)
{
    viewer->Drop(QStringLiteral("JIN0001"));
    EXPECT_EQ(viewer->Text().at(1), QStringLiteral("Descripció: Station ID \"Korvane FM\""));
}

TEST_F(DataViewerTest, AnIDThatIsNoCartSaysWhyAndLogsIt)
{
    const auto log = RecordingLogger::Install();
    for (const QString& id : {QStringLiteral("JIN'001"), QStringLiteral("MUS\"0001"), QStringLiteral("' OR 1=1")}) {
        viewer->Drop(id);
        ASSERT_EQ(viewer->Text().size(), 2) << id.toStdString();
        EXPECT_EQ(viewer->Text().at(0), id);
        EXPECT_TRUE(viewer->Text().at(1).contains(QStringLiteral("is not a cart ID"))) << viewer->Text().at(1).toStdString();
    }
    EXPECT_EQ(log->Errors().size(), 3);
    EXPECT_TRUE(log->Errors().first().startsWith(QStringLiteral("ERROR IFDataViewer.LoadCart: CartID = 'JIN'001'")));
    Log::SetLogger(nullptr);
}

TEST_F(DataViewerTest, ACartIDNotInTheCatalogueReadsAsUnknown)
{
    viewer->Drop(QStringLiteral("ZZZ9999"));
    ASSERT_FALSE(viewer->Text().isEmpty());
    EXPECT_EQ(viewer->Text().first(), QStringLiteral("ZZZ9999"));
    EXPECT_TRUE(viewer->Text().contains(QStringLiteral("Tipus: Unknown Type")));
    EXPECT_TRUE(viewer->Text().contains(QStringLiteral("Descripció: ")));
}

TEST_F(DataViewerTest, AFamilyShowsItsDescriptionAndReadRight)
{
    viewer->Component_DragDrop(Offering(CComponent::ShareFamily, kernel->Families()->Item(QStringLiteral("JIN")), QStringLiteral("FamilyBrowser")));
    EXPECT_EQ(viewer->Text(), QStringList({"Family", "JIN", "Desc: Jingles and station IDs", "EveryBody (R): True"}));
    viewer->Component_DragDrop(Offering(CComponent::ShareFamily, kernel->Families()->Item(QStringLiteral("PUB"))));
    EXPECT_EQ(viewer->Text().last(), QStringLiteral("EveryBody (R): False"));
    kernel->Families()->Add(QStringLiteral("ZZA"), QString());
    viewer->Component_DragDrop(Offering(CComponent::ShareFamily, kernel->Families()->Item(QStringLiteral("ZZA"))));
    EXPECT_EQ(viewer->Text().at(2), QStringLiteral("Desc: ")) << "no description, an empty value";
}

TEST_F(DataViewerTest, SourcesWithoutAThingToShow)
{
    EXPECT_EQ(viewer->Text(), QStringList({"<no source>"}));
    viewer->Component_DragDrop(Offering(CComponent::ShareNothing, nullptr));
    EXPECT_EQ(viewer->Text(), QStringList({"Void"}));
    viewer->Component_DragDrop(Offering(7, nullptr));
    EXPECT_EQ(viewer->Text(), QStringList({"Unknown", "ShareType Code", "Share Type: 7"}));
    viewer->Component_DragDrop(Offering(CComponent::ShareCart, nullptr));
    EXPECT_EQ(viewer->Text(), QStringList({"Cart", "<Cart not set>"}));
    viewer->Component_DragDrop(Offering(CComponent::ShareCart, Carts()->NewCart()));
    EXPECT_EQ(viewer->Text(), QStringList({"Cart", "<Blank Cart Name>"}));
    viewer->Component_DragDrop(Offering(CComponent::ShareFamily, nullptr));
    EXPECT_EQ(viewer->Text(), QStringList({"Family", "<Family not set>"}));
    viewer->Component_DragDrop(Offering(CComponent::ShareCart, kernel->Families()->Item(QStringLiteral("JIN"))));
    EXPECT_EQ(viewer->Text(), QStringList({"Cart", "<Cart not set>"})) << "a family offered as a cart is no cart";
}

TEST_F(DataViewerTest, ACartFromAnotherControlIsHeadedAndReadAgainFromTheCatalogue)
{
    // The browser's hover offers a fresh cart that carries only the ID of the row pointed at.
    const auto pointed = Carts()->NewCart();
    pointed->SetID(QStringLiteral("MUS0003"));
    viewer->Component_DragDrop(Offering(CComponent::ShareCart, pointed));
    QStringList expected = CartLines(QStringLiteral("MUS0003"), QStringLiteral("Sound"));
    expected.prepend(QStringLiteral("Cart"));
    EXPECT_EQ(viewer->Text().mid(0, expected.size()), expected);
    EXPECT_EQ(viewer->Text().at(2), QStringLiteral("Descripció: Añoranza"));
}

TEST_F(DataViewerTest, ADelayedLoadShowsTheLastSourceOnceTheTimerRunsOut)
{
    const auto first = Offering(CComponent::ShareFamily, kernel->Families()->Item(QStringLiteral("JIN")));
    const auto last = Offering(CComponent::ShareFamily, kernel->Families()->Item(QStringLiteral("MUS")));
    viewer->DelayedLoad(first);
    viewer->DelayedLoad(last);
    EXPECT_TRUE(viewer->TmrDelayedLoad->isActive());
    EXPECT_EQ(viewer->Text(), QStringList({"<no source>"})) << "nothing is drawn while the pointer moves";
    EXPECT_EQ(viewer->Source(), last);
    viewer->TmrDelayedLoad->setInterval(0);
    viewer->TmrDelayedLoad->start();
    while (viewer->TmrDelayedLoad->isActive())
        QCoreApplication::processEvents();
    EXPECT_EQ(viewer->Text().at(1), QStringLiteral("MUS"));
    viewer->Drop(QStringLiteral("JIN0002"));
    EXPECT_FALSE(viewer->TmrDelayedLoad->isActive()) << "a load on the spot ends a pending one";
}

TEST_F(DataViewerTest, AChangeOfItsOwnComponentShowsTheLastSourceAgain)
{
    viewer->Drop(QStringLiteral("JIN0002"));
    viewer->Component()->SetSharedObject(Carts()->Cart(QStringLiteral("NEW0001")));
    EXPECT_EQ(viewer->Text().first(), QStringLiteral("NEW0001"));
    viewer->Component()->SetShareType(CComponent::ShareNothing);
    EXPECT_EQ(viewer->Text(), QStringList({"Void"}));
}

TEST_F(DataViewerTest, ItIsRegisteredUnderItsNameAndMadeByItsClassName)
{
    EXPECT_EQ(viewer->Component()->Name(), QStringLiteral("DataViewer"));
    EXPECT_EQ(viewer->Component()->Control(), viewer.get());
    std::unique_ptr<QWidget> made;
    Browse::RegisterControls([&](const QString& name, const Browse::ControlFactory& factory) {
        if (name == QStringLiteral("Korvane_Interface.IFDataViewer"))
            made.reset(factory(nullptr));
    });
    ASSERT_NE(made, nullptr);
    EXPECT_NE(qobject_cast<IFDataViewer*>(made.get()), nullptr);
    const std::shared_ptr<CComponent> component = viewer->Component();
    viewer.reset();
    EXPECT_EQ(component->Control(), nullptr) << "a viewer that went away is reached by no drag";
}

TEST_F(DataViewerTest, LabelsAndValuesArePaintedInTheirColours)
{
    viewer->Drop(QStringLiteral("MUS0001"));
    viewer->show();
    const QImage picture = viewer->PicData->grab().toImage();
    bool label = false, value = false;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            label = label || picture.pixelColor(x, y) == DataPicture::LabelColor;
            value = value || picture.pixelColor(x, y) == DataPicture::ValueColor;
        }
    EXPECT_TRUE(label);
    EXPECT_TRUE(value);
    EXPECT_TRUE(Photograph(viewer.get(), QStringLiteral("IFDataViewer")));
}

TEST(DataViewerWithoutKernel, ALayoutUnderEditPrintsNothingAndTakesNoCart)
{
    Globals::SetKernel(nullptr);
    IFDataViewer viewer;
    viewer.Drop(QStringLiteral("MUS0001"));
    EXPECT_TRUE(viewer.Text().isEmpty());
    EXPECT_EQ(viewer.Source(), nullptr);
    EXPECT_EQ(viewer.Component()->SharedObject(), nullptr);
}
