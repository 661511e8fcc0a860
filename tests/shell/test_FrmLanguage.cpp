#include "ShellFixture.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "kernelapi/CKernel.h"
#include "shell/ConfigForm.h"
#include "shell/FrmLanguage.h"
#include "shell/IFStationID.h"
#include "shell/InitForm.h"
#include "support/Photograph.h"
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using LanguageScreen = ShellFixture;

namespace {
const QString LanguageKey = QStringLiteral("Translator.Language");

FrmLanguage* OpenLanguage(ShellFixture& fixture)
{
    InitForm::Instance()->MenuSelector_OpenForm(QStringLiteral("FrmLanguage"));
    return qobject_cast<FrmLanguage*>(Form::Find(QStringLiteral("FrmLanguage")));
}

QString StoredLanguage()
{
    return Globals::Kernel()->Config(LanguageKey).toString();
}

int LitLamps(const FrmLanguage& form)
{
    int lit = 0;
    for (int i = 0; i < FrmLanguage::Languages; ++i)
        lit += form.LampLit(i) ? 1 : 0;
    return lit;
}
}

TEST(LanguageCodes, SixCodesInTheirOrderAndNothingElse)
{
    const QStringList codes = {"CAT", "ESP", "EUS", "FRE", "ENG", "GAL"};
    for (int i = 0; i < codes.size(); ++i) {
        EXPECT_EQ(FrmLanguage::CodeOf(i), codes[i]);
        EXPECT_EQ(FrmLanguage::IndexOf(codes[i]), i);
    }
    EXPECT_TRUE(FrmLanguage::CodeOf(-1).isEmpty());
    EXPECT_TRUE(FrmLanguage::CodeOf(6).isEmpty());
    for (const char* other : {"", "cat", "English", " CAT", "XX"})
        EXPECT_EQ(FrmLanguage::IndexOf(QString::fromLatin1(other)), -1) << other;
}

TEST_F(LanguageScreen, TheStoredLanguageBlinksAndAChoiceIsStoredAtExit)
{
    SetConfig(LanguageKey, QStringLiteral("ESP"));
    ASSERT_TRUE(Start());
    ASSERT_TRUE(Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    FrmLanguage* form = OpenLanguage(*this);
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(InitForm::Instance()->isVisible());
    EXPECT_EQ(form->Index(), 1);
    EXPECT_TRUE(form->Timer1->isActive());
    EXPECT_EQ(form->Timer1->interval(), FrmLanguage::BlinkMs);
    EXPECT_TRUE(form->LampLit(1));
    EXPECT_EQ(LitLamps(*form), 1);
    form->Timer1_Timer();
    EXPECT_EQ(LitLamps(*form), 0);
    form->Timer1_Timer();
    EXPECT_TRUE(form->LampLit(1));
    EXPECT_FALSE(form->CmdEditLanguages->isEnabled());
    // Language names stay in their own language whatever the language in use.
    EXPECT_EQ(form->Idiom1(0)->text(), QStringLiteral("Català"));
    EXPECT_EQ(form->Sortir->text(), QStringLiteral("Salir"));

    QTest::mouseClick(form->LedD(3), Qt::LeftButton); // the lamp chooses as the button does
    EXPECT_EQ(form->Code(), QStringLiteral("FRE"));
    QTest::mouseClick(form->Idiom1(0), Qt::LeftButton);
    EXPECT_EQ(form->Code(), QStringLiteral("CAT"));
    EXPECT_TRUE(form->LampLit(0));
    EXPECT_EQ(LitLamps(*form), 1);
    Photograph(form, QStringLiteral("FrmLanguage"));

    QTest::mouseClick(form->Sortir, Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(StoredLanguage(), QStringLiteral("CAT"));
    EXPECT_EQ(Form::Find(QStringLiteral("FrmLanguage")), nullptr);
    EXPECT_TRUE(InitForm::Instance()->isVisible());
}

TEST_F(LanguageScreen, AnUnknownCodeLightsNothingAndIsWrittenBackUnchanged)
{
    SetConfig(LanguageKey, QStringLiteral("Klingon"));
    ASSERT_TRUE(Start());
    FrmLanguage* form = OpenLanguage(*this);
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Index(), -1);
    EXPECT_EQ(LitLamps(*form), 0);
    form->Timer1_Timer();
    EXPECT_EQ(LitLamps(*form), 0);
    form->Sortir_Click();
    EXPECT_EQ(StoredLanguage(), QStringLiteral("Klingon"));
}

TEST_F(LanguageScreen, ASwitchTakesEffectOnTheMenuAndOnEveryScreenOpenedAfterIt)
{
    SetConfig(LanguageKey, QStringLiteral("ENG"));
    SetConfig(QStringLiteral("T_StationID"), QStringLiteral("yes"));
    ASSERT_TRUE(Start());
    ASSERT_TRUE(Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    auto* station = InitForm::Instance()->findChild<IFStationID*>();
    ASSERT_NE(station, nullptr);
    EXPECT_TRUE(station->Caption().startsWith(QStringLiteral("Station ID: ")));
    auto* connected = InitForm::Instance()->findChild<QLabel*>(QStringLiteral("Label1"));
    ASSERT_NE(connected, nullptr);
    EXPECT_EQ(connected->text(), QStringLiteral("Connected User:"));

    for (const auto& [code, exitCaption, userCaption] :
         {std::tuple{"CAT", "Sortir", "Usuari connectat:"}, std::tuple{"ESP", "Salir", "Usuario conectado:"},
          std::tuple{"ENG", "Exit", "Connected User:"}}) {
        FrmLanguage* form = OpenLanguage(*this);
        ASSERT_NE(form, nullptr);
        form->SetIndex(FrmLanguage::IndexOf(QString::fromLatin1(code)));
        form->Sortir_Click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(connected->text(), QString::fromUtf8(userCaption)) << code;
        EXPECT_EQ(Tr(QStringLiteral("Exit")), QString::fromUtf8(exitCaption)) << code;
        InitForm::Instance()->MenuSelector_OpenForm(QStringLiteral("ConfigForm"));
        auto* config = qobject_cast<ConfigForm*>(Form::Find(QStringLiteral("ConfigForm")));
        ASSERT_NE(config, nullptr);
        EXPECT_EQ(config->Cmd(10)->text(), Tr(QStringLiteral("Language"))) << code;
        config->Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_TRUE(station->Caption().startsWith(QStringLiteral("Station ID: ")));
}
