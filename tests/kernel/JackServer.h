#pragma once
#include <QCoreApplication>
#include <QProcess>
#include <QString>

// A JACK server of the test's own, with the dummy driver at 48 kHz. JACK_DEFAULT_SERVER names
// it for the life of the object, so that the engine's JACK clients reach it. Kill ends it;
// Start starts it again under the same name, as a restarted server would come back.
class JackServer
{
public:
    JackServer() : m_name(QStringLiteral("korvane-test-%1").arg(QCoreApplication::applicationPid()))
    {
        qputenv("JACK_DEFAULT_SERVER", m_name.toUtf8());
        m_jackd.setProcessChannelMode(QProcess::MergedChannels);
        Start();
    }

    ~JackServer()
    {
        Kill();
        qunsetenv("JACK_DEFAULT_SERVER");
    }

    // Empty once the server answers.
    QString Failure() const { return m_failure; }

    void Start()
    {
        m_jackd.start(QStringLiteral("jackd"), {"--no-realtime", "--name", m_name, "-d", "dummy", "--rate", "48000", "--period", "256"});
        if (!m_jackd.waitForStarted(5000)) {
            m_failure = QStringLiteral("jackd does not start: ") + m_jackd.errorString();
            return;
        }
        if (QProcess::execute(QStringLiteral("jack_wait"), {"--server", m_name, "--wait", "--timeout", "10"}) != 0)
            m_failure = QStringLiteral("jackd does not answer: ") + QString::fromLocal8Bit(m_jackd.readAll());
    }

    // Ends the server as a crash would end the session, but lets it unregister itself: a
    // killed jackd leaves its entry in JACK's shared registry, and a few of those make every
    // later server refuse to start.
    void Kill()
    {
        m_jackd.terminate();
        if (!m_jackd.waitForFinished(5000)) {
            m_jackd.kill();
            m_jackd.waitForFinished(5000);
        }
    }

private:
    QString m_name;
    QProcess m_jackd;
    QString m_failure;
};
