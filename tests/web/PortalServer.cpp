#include "PortalServer.h"
#include <QTcpSocket>

PortalServer::PortalServer()
{
    m_server.listen(QHostAddress::LocalHost);
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = m_server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Answer(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

QString PortalServer::Address() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort());
}

void PortalServer::Answer(QTcpSocket* socket)
{
    if (!socket->canReadLine())
        return;
    // "GET /target HTTP/1.1"; the rest of the request is of no interest.
    const QList<QByteArray> words = socket->readLine().trimmed().split(' ');
    socket->readAll();
    const QString target = words.size() >= 2 ? QString::fromLatin1(words[1]) : QString();
    if (target != QLatin1String("/favicon.ico"))
        m_targets << target;
    const QByteArray body = "<html><head><title>" + target.toHtmlEscaped().toUtf8() + "</title></head><body><h1>Portal</h1><p>"
                            + target.toHtmlEscaped().toUtf8() + "</p></body></html>";
    socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=utf-8\r\nConnection: close\r\nContent-Length: "
                  + QByteArray::number(body.size()) + "\r\n\r\n" + body);
    socket->disconnectFromHost();
}

QString RefusingAddress()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost);
    const quint16 port = probe.serverPort();
    probe.close();
    return QStringLiteral("http://127.0.0.1:%1").arg(port);
}
