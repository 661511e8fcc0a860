#pragma once
#include "shell/components/CData.h"
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVector>
#include <memory>

// Renames the events of a control: every Qt signal that the Source declares (beyond QObject's
// own) is an event known by its name. At each event the triggers are tried in the order they
// were added, comparing names without regard to case; the first that matches raises Match
// with the event's name and a CData holding the trigger's new name.
class CEventProcessor : public QObject
{
    Q_OBJECT
public:
    explicit CEventProcessor(QObject* parent = nullptr);

    QObject* Source() const { return m_source; }
    // Listens to every signal of the source in place of the previous one's.
    void SetSource(QObject* source);

    // An empty new name means the event's own name.
    void AddTrigger(const QString& eventName, const QString& newName = {});
    int TriggerCount() const { return static_cast<int>(m_triggers.size()); }

Q_SIGNALS:
    void Match(const QString& sourceEvent, std::shared_ptr<CData> newName);

private Q_SLOTS:
    void SourceEvent();

private:
    struct Trigger
    {
        QString Name;
        QString NewName;
    };
    void Process(const QString& eventName);

    QPointer<QObject> m_source;
    QVector<QMetaObject::Connection> m_connections;
    QVector<Trigger> m_triggers;
};
