#include "ShellFixture.h"
#include "shell/Form.h"
#include "shell/InitForm.h"
#include "shell/Registry.h"
#include "tools/SourceTexts.h"
#include "tools/Translations.h"
#include <QCoreApplication>
#include <QSet>

namespace {
const QStringList ShippedLanguages = {QStringLiteral("CAT"), QStringLiteral("ESP")};

// Contents keys its rows without regard to case, so "NO" (a deck's silent volume) cannot have
// a row beside "No"; it reads the same in every shipped language.
QVector<SourceTexts::Text> WithoutCaseTwins(QVector<SourceTexts::Text> texts)
{
    texts.removeIf([](const SourceTexts::Text& text) { return text.text == QLatin1String("NO"); });
    return texts;
}

// The English sources that the translation of a widget tree kept, one per translated caption.
QVector<SourceTexts::Text> TranslatedCaptions(const QWidget& root, const QString& place)
{
    QVector<SourceTexts::Text> texts;
    QList<const QObject*> objects{&root};
    for (const QObject* child : root.findChildren<QObject*>())
        objects << child;
    for (const QObject* object : objects)
        for (const QByteArray& name : object->dynamicPropertyNames())
            if (name.startsWith("korvane_source")) {
                const QString text = object->property(name.constData()).toString();
                if (std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c.isLetter(); }))
                    texts << SourceTexts::Text{text, place + QLatin1Char('/') + object->objectName(), 0};
            }
    return texts;
}

QString Listed(const QStringList& missing)
{
    return QStringLiteral("%1 texts lack a translation in tools/contents.tsv:\n").arg(missing.size()) + missing.join(QLatin1Char('\n'));
}
}

TEST(Translations, EveryTextTheSourcesGiveTheTranslatorShipsInCatalanAndSpanish)
{
    const QVector<SourceTexts::Text> texts = SourceTexts::ExtractFolders(QStringLiteral(KORVANE_SOURCE_DIR), SourceTexts::WorkstationFolders());
    ASSERT_GT(texts.size(), 100); // the sources were found
    const QStringList missing = SourceTexts::Untranslated(WithoutCaseTwins(texts), Translations::Builtin(), ShippedLanguages);
    EXPECT_TRUE(missing.isEmpty()) << Listed(missing).toStdString();
}

TEST(Translations, TheExtractionReadsTrAndWidgetCaptionsAndSkipsWhatIsNoWord)
{
    const QString source = QStringLiteral(
        "x = Tr(QStringLiteral(\"Loading screen\"));\n"
        "auto* b = new QPushButton(QStringLiteral(\"Exit\"), this);\n"
        "label->setText(QStringLiteral(\"Say \\\"yes\\\"\\n\") + other);\n"
        "setWindowTitle(QString::fromLatin1(\"Browser\"));\n"
        "LblTime->setText(QStringLiteral(\"00:00\"));\n"
        "Tr(variable); Log(QStringLiteral(\"Not a caption\"));\n");
    const QVector<SourceTexts::Text> texts = SourceTexts::Extract(source, QStringLiteral("f.cpp"));
    QStringList found;
    for (const auto& text : texts)
        found << text.text;
    EXPECT_EQ(found, (QStringList{"Loading screen", "Exit", "Say \"yes\"\n", "Browser"}));
    EXPECT_EQ(texts[1].line, 2);

    const QVector<Translations::Row> rows{{"Exit", "CAT", "Sortir"}, {"Exit", "ESP", "Salir"}, {"Browser", "CAT", "Navegador"}};
    EXPECT_EQ(SourceTexts::Untranslated(texts.mid(1, 1) + texts.mid(3), rows, ShippedLanguages),
              QStringList{"Browser  (f.cpp:4, no ESP)"});
}

using TranslatedScreens = ShellFixture;

namespace {
// A screen that loads step by step after it shows (the tick of its loader timer,
// "TmrLoader_Timer") is let load, so that what its steps translate is read too.
void RunLoader(QWidget& form)
{
    if (form.metaObject()->indexOfMethod("TmrLoader_Timer()") >= 0)
        QMetaObject::invokeMethod(&form, "TmrLoader_Timer");
}
}

// What the screens and controls translate at their load, read back from the widgets, so that
// captions made by helpers (a caption handed through a function) are found too.
TEST_F(TranslatedScreens, EveryCaptionTranslatedAtLoadShipsInCatalanAndSpanish)
{
    ASSERT_TRUE(Start());
    ASSERT_TRUE(Login(QStringLiteral("ADMIN"), QStringLiteral("korvane")));
    QVector<SourceTexts::Text> texts = TranslatedCaptions(*InitForm::Instance(), QStringLiteral("InitForm"));
    QWidget host;
    for (const QString& name : Registry::Names()) {
        if (name.startsWith(QLatin1String("Korvane_Interface."))) {
            if (QWidget* control = Registry::Create(name, &host))
                texts += TranslatedCaptions(*control, name);
            continue;
        }
        QWidget* widget = Registry::Create(name);
        if (!widget)
            continue;
        widget->show(); // a form translates itself at its load
        RunLoader(*widget);
        texts += TranslatedCaptions(*widget, name);
        if (auto* form = qobject_cast<Form*>(widget))
            form->Unload();
        else
            delete widget;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    ASSERT_GT(texts.size(), 50);
    const QStringList missing = SourceTexts::Untranslated(texts, Translations::Builtin(), ShippedLanguages);
    EXPECT_TRUE(missing.isEmpty()) << Listed(missing).toStdString();
}

TEST(Translations, TheShippedTableHoldsOneRowPerTextAndLanguageWhateverTheCase)
{
    QSet<QString> keys;
    for (const Translations::Row& row : Translations::Builtin()) {
        const QString key = row.language + QLatin1Char('\t') + row.original.toLower();
        EXPECT_FALSE(keys.contains(key)) << "twice: " << key.toStdString();
        keys.insert(key);
        EXPECT_FALSE(row.translation.isEmpty()) << row.original.toStdString();
        EXPECT_EQ(row.original.count(QLatin1Char('%')), row.translation.count(QLatin1Char('%'))) << row.original.toStdString();
    }
}
