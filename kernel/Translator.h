#pragma once
#include "kernel/KernelLog.h"
#include "kernelapi/iTranslator.h"
#include <QHash>
#include <memory>

class ConfigStore;
class Database;

// Translations of English source texts from table Contents (Original, Language, Translation)
// of the kernel's database, into the language of the shared key Translator.Language (empty,
// "English" or its code "ENG": no translation). The rows of the language in use are read once into memory and
// read again when the language changes.
class Translator : public iTranslator
{
    Q_OBJECT
public:
    static constexpr const char* LanguageKey = "Translator.Language";

    Translator(std::shared_ptr<Database> db, std::shared_ptr<const ConfigStore> config, KernelLog log,
               QObject* parent = nullptr);

    QString Translate(const QString& text) const override;
    QString Language() const override;
    // Forgets the loaded rows, so that the next translation reads them again.
    void Reload();

private:
    static bool IsSourceLanguage(const QString& language);
    void Load(const QString& language) const;

    std::shared_ptr<Database> m_db;
    std::shared_ptr<const ConfigStore> m_config;
    KernelLog m_log;
    mutable QString m_loadedLanguage; // empty while nothing is loaded
    mutable QHash<QString, QString> m_translations;
};
