#pragma once
#include <QObject>
#include <QVariant>

// A neutral holder of one value, passed where an object is expected (the new name of a
// matched event, for example).
class CData : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariant Value READ Value WRITE SetValue)
public:
    explicit CData(QVariant value = {}, QObject* parent = nullptr)
        : QObject(parent), m_value(std::move(value))
    {
    }

    QVariant Value() const { return m_value; }
    void SetValue(const QVariant& value) { m_value = value; }

private:
    QVariant m_value;
};
