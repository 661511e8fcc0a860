#include "foundation/ui/TranslateWidgets.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iTranslator.h"
#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QWidget>

namespace {
const char* const SourceProperty = "korvane_source";
const char* const UntranslatedProperty = "korvane_untranslated";

// Translates one caption, remembering its English source under a per-slot property name.
QString TranslatedCaption(const iTranslator& translator, QObject* owner, const char* slot, const QString& current)
{
    const QByteArray name = QByteArray(SourceProperty) + slot;
    QVariant source = owner->property(name.constData());
    if (!source.isValid()) {
        source = current;
        owner->setProperty(name.constData(), source);
    }
    const QString english = source.toString();
    return english.isEmpty() ? english : translator.Translate(english);
}

void TranslateOne(const iTranslator& translator, QWidget* widget)
{
    if (widget->property(UntranslatedProperty).toBool())
        return;
    if (widget->isWindow())
        widget->setWindowTitle(TranslatedCaption(translator, widget, "title", widget->windowTitle()));
    if (auto* label = qobject_cast<QLabel*>(widget))
        label->setText(TranslatedCaption(translator, label, "text", label->text()));
    else if (auto* button = qobject_cast<QAbstractButton*>(widget))
        button->setText(TranslatedCaption(translator, button, "text", button->text()));
    else if (auto* frame = qobject_cast<QGroupBox*>(widget))
        frame->setTitle(TranslatedCaption(translator, frame, "text", frame->title()));
    else if (auto* edit = qobject_cast<QLineEdit*>(widget))
        edit->setPlaceholderText(TranslatedCaption(translator, edit, "text", edit->placeholderText()));
    else if (auto* tabs = qobject_cast<QTabWidget*>(widget))
        for (int i = 0; i < tabs->count(); ++i)
            tabs->setTabText(i, TranslatedCaption(translator, tabs, QByteArray::number(i).constData(), tabs->tabText(i)));
    if (!widget->toolTip().isEmpty())
        widget->setToolTip(TranslatedCaption(translator, widget, "tip", widget->toolTip()));
}
}

void TranslateControl(const iTranslator& translator, QWidget* control)
{
    TranslateOne(translator, control);
    for (QWidget* child : control->findChildren<QWidget*>())
        TranslateOne(translator, child);
}

void TranslateForm(const iTranslator& translator, QWidget* form)
{
    TranslateControl(translator, form);
}

void TranslateWithKernel(QWidget* widget)
{
    Guarded(QStringLiteral("Translator"), QStringLiteral("TranslateForm"), [&] {
        const auto kernel = Globals::Kernel();
        const auto translator = kernel ? kernel->Translator() : nullptr;
        // Without a kernel or its translator the texts stay as they are written.
        if (translator)
            TranslateForm(*translator, widget);
    });
}

void KeepUntranslated(QWidget* widget)
{
    widget->setProperty(UntranslatedProperty, true);
}
