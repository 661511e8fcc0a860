#include "foundation/Tr.h"
#include "foundation/Globals.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iTranslator.h"

QString Tr(const QString& text)
{
    try {
        if (auto kernel = Globals::Kernel())
            if (auto translator = kernel->Translator())
                return translator->Translate(text);
    } catch (...) {
        // An unavailable translator leaves the English text.
    }
    return text;
}
