#pragma once
#include <QString>

// The translation of an English text shown to the user, through the kernel's translator.
// Without a kernel, or when the translator fails, the text comes back unchanged.
QString Tr(const QString& text);
