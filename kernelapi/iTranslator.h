#pragma once
#include <QObject>
#include <QString>

// Turns English source texts into the station's language (shared key Translator.Language).
// Walking a widget tree and translating each caption (TranslateForm, TranslateControl) is done
// on the client side by foundation/controls/Translate.h, which calls Translate for every text.
class iTranslator : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iTranslator() override = default;

    // The translation of an English source text; an unknown text comes back unchanged.
    virtual QString Translate(const QString& text) const = 0;
    // The language in use, as stored in Translator.Language.
    virtual QString Language() const = 0;
};
