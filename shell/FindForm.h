#pragma once
#include <QString>

class Form;

// The first open form whose name is exactly that, or null.
Form* FindForm(const QString& name);
