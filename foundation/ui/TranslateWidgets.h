#pragma once

class QWidget;
class iTranslator;

// Replaces every caption of a form (its title, labels, buttons, frames, tabs) and of all its
// children by the translation. The English source is kept on each widget, so translating
// again after a change of language starts from English. Widgets marked KeepUntranslated
// (captions that come from a station file) are left as written.
void TranslateForm(const iTranslator& translator, QWidget* form);
// The same for a composite control and its children: what a control's TranslateMe calls.
void TranslateControl(const iTranslator& translator, QWidget* control);
// The kernel's translator, when there is one: TranslateForm through Globals::Kernel().
void TranslateWithKernel(QWidget* widget);

void KeepUntranslated(QWidget* widget);
