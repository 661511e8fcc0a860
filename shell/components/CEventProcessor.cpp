#include "shell/components/CEventProcessor.h"
#include <QMetaMethod>

CEventProcessor::CEventProcessor(QObject* parent)
    : QObject(parent)
{
}

void CEventProcessor::SetSource(QObject* source)
{
    for (const auto& connection : m_connections)
        disconnect(connection);
    m_connections.clear();
    m_source = source;
    if (!source)
        return;
    // Every signal goes to one slot with no arguments; the slot learns which one by its index.
    const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("SourceEvent()"));
    const QMetaObject* meta = source->metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i)
        if (meta->method(i).methodType() == QMetaMethod::Signal)
            m_connections.append(connect(source, meta->method(i), this, slot));
}

void CEventProcessor::AddTrigger(const QString& eventName, const QString& newName)
{
    m_triggers.append({eventName, newName.isEmpty() ? eventName : newName});
}

void CEventProcessor::SourceEvent()
{
    const int index = senderSignalIndex();
    if (index >= 0 && sender())
        Process(QString::fromLatin1(sender()->metaObject()->method(index).name()));
}

void CEventProcessor::Process(const QString& eventName)
{
    const QString wanted = eventName.toUpper();
    for (const Trigger& trigger : m_triggers)
        if (trigger.Name.toUpper() == wanted) {
            Q_EMIT Match(eventName, std::make_shared<CData>(trigger.NewName));
            return;
        }
}
