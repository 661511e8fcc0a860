#pragma once
#include <QObject>
#include <QStringList>
#include <QTcpServer>

// A portal on the loopback for the browser's tests: answers every GET with a small page whose
// title is the request's target (path and query as sent), and records the targets in order.
class PortalServer : public QObject
{
    Q_OBJECT
public:
    PortalServer();

    QString Address() const;
    // The targets asked for, without the browser's own requests for /favicon.ico.
    QStringList Targets() const { return m_targets; }

private:
    void Answer(class QTcpSocket* socket);

    QTcpServer m_server;
    QStringList m_targets;
};

// An address on the loopback where nothing listens: a connection to it is refused.
QString RefusingAddress();
