#include "KernelTest.h"
#include "kernelapi/iTranslator.h"

namespace {
const QString LanguageKey = QStringLiteral("Translator.Language");
const QString MenuNotLoaded = QStringLiteral("Menu was not loaded");
}

TEST_F(KernelTest, TranslatorFollowsTheLanguageKey)
{
    const auto translator = kernel->Translator();
    EXPECT_EQ(translator->Translate(MenuNotLoaded), MenuNotLoaded) << "the demo station speaks English";

    kernel->SetConfig(LanguageKey, QStringLiteral("CAT"));
    EXPECT_EQ(translator->Language(), "CAT");
    EXPECT_EQ(translator->Translate(MenuNotLoaded), "No s'ha pogut carregar el menú");
    EXPECT_EQ(translator->Translate(QStringLiteral("Never translated")), "Never translated");
    EXPECT_EQ(translator->Translate(QString()), "");

    kernel->SetConfig(LanguageKey, QStringLiteral("ESP"));
    EXPECT_EQ(translator->Translate(MenuNotLoaded), "No se ha podido cargar el menú");

    for (const char* source : {"ENG", "English", ""}) {
        kernel->SetConfig(LanguageKey, QString::fromLatin1(source));
        EXPECT_EQ(translator->Translate(MenuNotLoaded), MenuNotLoaded) << source;
    }

    kernel->SetConfig(LanguageKey, QStringLiteral("GAL"));
    EXPECT_EQ(translator->Translate(MenuNotLoaded), MenuNotLoaded) << "a language without rows";
}

TEST_F(KernelTest, TranslatorReadsEditedContentsAfterConfigRecordChanged)
{
    kernel->SetConfig(LanguageKey, QStringLiteral("CAT"));
    const auto translator = kernel->Translator();
    ASSERT_EQ(translator->Translate(MenuNotLoaded), "No s'ha pogut carregar el menú");

    kernel->Execute(QStringLiteral("UPDATE Contents SET Translation = 'Menú absent' WHERE Original = 'Menu was not loaded' AND Language = 'CAT'"));
    kernel->Execute(QStringLiteral("INSERT INTO Contents (Original, Language, Translation) VALUES ('Hello', 'CAT', 'Hola')"));
    kernel->ConfigRecordChanged(QVariant());
    EXPECT_EQ(translator->Translate(MenuNotLoaded), "Menú absent");
    EXPECT_EQ(translator->Translate(QStringLiteral("Hello")), "Hola");
}
