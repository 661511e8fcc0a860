#pragma once
#include "kernelapi/iObjectWithProperties.h"
#include <QList>
#include <QPair>

// A plain bag of named values: the properties of a cart, of a macro entry or of a playlist
// row. Every property is changeable; names keep the order in which they were added. The text
// form (a JSON object) is how a playlist row stores its bag.
class PropertyBag : public iObjectWithProperties
{
    Q_OBJECT
public:
    using iObjectWithProperties::iObjectWithProperties;

    // A new bag with the same properties; an empty bag for null.
    static std::shared_ptr<PropertyBag> CopyOf(const std::shared_ptr<iObjectWithProperties>& source);
    // A bag read from its text form; throws KernelError when the text is not a JSON object.
    static std::shared_ptr<PropertyBag> FromText(const QString& text);
    QString ToText() const;

    ObjectKind Kind() const override { return ObjectKind::PropertyBag; }
    QString Name() const override { return {}; }
    QString Key() const override { return {}; }
    QStringList PropertyNames(PropertyGroup group) const override;
    bool HasProperty(const QString& name) const override;
    QVariant Property(const QString& name) const override;
    void SetProperty(const QString& name, const QVariant& value) override;
    void RemoveProperty(const QString& name) override;
    int ChildCount() const override { return 0; }
    std::shared_ptr<iObjectWithProperties> Child(int index) const override;
    bool IsAudio() const override { return true; }
    std::shared_ptr<iInterval> Interval() const override { return nullptr; }
    void SetInterval(qint32 begin, qint32 end) override;

private:
    int IndexOf(const QString& name) const;

    QList<QPair<QString, QVariant>> m_values;
};
