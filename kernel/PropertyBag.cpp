#include "kernel/PropertyBag.h"
#include "kernelapi/KernelError.h"
#include <QJsonDocument>
#include <QJsonObject>

std::shared_ptr<PropertyBag> PropertyBag::CopyOf(const std::shared_ptr<iObjectWithProperties>& source)
{
    auto bag = std::make_shared<PropertyBag>();
    if (!source)
        return bag;
    for (const auto group : {PropertyGroup::Static, PropertyGroup::Volatile}) {
        for (const QString& name : source->PropertyNames(group))
            bag->m_values.append({name, source->Property(name)});
    }
    return bag;
}

std::shared_ptr<PropertyBag> PropertyBag::FromText(const QString& text)
{
    auto bag = std::make_shared<PropertyBag>();
    if (text.trimmed().isEmpty())
        return bag;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &error);
    if (!document.isObject())
        throw KernelError(QStringLiteral("Stored properties are not readable (%1): %2").arg(error.errorString(), text.left(80)));
    const QJsonObject object = document.object();
    for (auto it = object.begin(); it != object.end(); ++it)
        bag->m_values.append({it.key(), it.value().toVariant()});
    return bag;
}

QString PropertyBag::ToText() const
{
    if (m_values.isEmpty())
        return {};
    QJsonObject object;
    for (const auto& [name, value] : m_values)
        object.insert(name, QJsonValue::fromVariant(value));
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QStringList PropertyBag::PropertyNames(PropertyGroup group) const
{
    QStringList names;
    if (group == PropertyGroup::Volatile) {
        for (const auto& entry : m_values)
            names << entry.first;
    }
    return names;
}

bool PropertyBag::HasProperty(const QString& name) const
{
    return IndexOf(name) >= 0;
}

QVariant PropertyBag::Property(const QString& name) const
{
    const int index = IndexOf(name);
    return index >= 0 ? m_values[index].second : QVariant();
}

void PropertyBag::SetProperty(const QString& name, const QVariant& value)
{
    const int index = IndexOf(name);
    if (index < 0) {
        m_values.append({name, value});
        Q_EMIT AddedProperty(name);
    } else if (m_values[index].second != value) {
        m_values[index].second = value;
        Q_EMIT ChangedProperty(name);
    }
}

void PropertyBag::RemoveProperty(const QString& name)
{
    const int index = IndexOf(name);
    if (index < 0)
        return;
    m_values.removeAt(index);
    Q_EMIT RemovedProperty(name);
}

std::shared_ptr<iObjectWithProperties> PropertyBag::Child(int index) const
{
    throw KernelError(QStringLiteral("A property bag has no child %1").arg(index));
}

void PropertyBag::SetInterval(qint32, qint32)
{
    throw KernelError(QStringLiteral("A property bag has no interval"));
}

int PropertyBag::IndexOf(const QString& name) const
{
    for (int i = 0; i < m_values.size(); ++i) {
        if (m_values[i].first.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}
