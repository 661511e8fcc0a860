#include "shell/Registry.h"
#include <QHash>

namespace Registry {
namespace {
QHash<QString, Factory>& Factories()
{
    static QHash<QString, Factory> factories;
    return factories;
}
}

void Register(const QString& name, Factory factory)
{
    Factories().insert(name, std::move(factory));
}

bool Has(const QString& name)
{
    return Factories().contains(name);
}

QWidget* Create(const QString& name, QWidget* parent)
{
    const auto it = Factories().constFind(name);
    return it == Factories().cend() ? nullptr : (*it)(parent);
}

QStringList Names()
{
    QStringList names = Factories().keys();
    names.sort();
    return names;
}
}
