#include "kernel/Translator.h"
#include "foundation/db/Database.h"
#include "kernel/ConfigStore.h"
#include "kernelapi/KernelError.h"
#include <QSqlQuery>

Translator::Translator(std::shared_ptr<Database> db, std::shared_ptr<const ConfigStore> config, KernelLog log,
                       QObject* parent)
    : iTranslator(parent), m_db(std::move(db)), m_config(std::move(config)), m_log(std::move(log))
{
}

QString Translator::Translate(const QString& text) const
{
    const QString language = Language();
    if (IsSourceLanguage(language))
        return text;
    if (language != m_loadedLanguage)
        Load(language);
    return m_translations.value(text, text);
}

QString Translator::Language() const
{
    return m_config->Value(QLatin1String(LanguageKey)).toString().trimmed();
}

void Translator::Reload()
{
    m_loadedLanguage.clear();
    m_translations.clear();
}

bool Translator::IsSourceLanguage(const QString& language)
{
    return language.isEmpty() || language.compare(QLatin1String("English"), Qt::CaseInsensitive) == 0
           || language.compare(QLatin1String("ENG"), Qt::CaseInsensitive) == 0;
}

void Translator::Load(const QString& language) const
{
    m_translations.clear();
    m_loadedLanguage = language;
    try {
        QSqlQuery query = m_db->Query(
            QStringLiteral("SELECT Original, Translation FROM Contents WHERE Language = ?"), {language});
        while (query.next()) {
            const QString translation = query.value(1).toString();
            if (!translation.isEmpty())
                m_translations.insert(query.value(0).toString(), translation);
        }
    } catch (const KernelError& e) {
        // Texts stay in English rather than failing every caption of the workstation.
        m_log.Error(QStringLiteral("Translator"), QStringLiteral("Load"), e.Description());
    }
}
