#include "kernel/ReportPrinter.h"
#include "kernel/CartReport.h"
#include "kernelapi/KernelError.h"
#include <QCoreApplication>

ReportPrinter::ReportPrinter(KernelLog log)
    : m_log(std::move(log))
{
    m_worker.setMaxThreadCount(1);
}

ReportPrinter::~ReportPrinter()
{
    m_worker.waitForDone();
}

void ReportPrinter::Print(const QString& object, const QString& folder, const QString& printer, const QString& stem,
                          const QString& title, Lines lines)
{
    m_worker.start([this, object, folder, printer, stem, title, lines = std::move(lines)] {
        Done done;
        try {
            const CartReport::Outcome outcome = CartReport(folder, printer).Print(stem, title, lines());
            done.destination = outcome.destination;
            done.problem = outcome.problem;
        } catch (const KernelError& e) {
            done.failure = e.Description();
        }
        QMetaObject::invokeMethod(this, [this, object, title, done] { Finish(object, title, done); }, Qt::QueuedConnection);
    });
}

void ReportPrinter::WaitForDone()
{
    m_worker.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void ReportPrinter::Finish(const QString& object, const QString& title, const Done& done)
{
    const QString procedure = QStringLiteral("Print");
    if (!done.failure.isEmpty())
        m_log.Error(object, procedure, QStringLiteral("%1 was not printed: %2").arg(title, done.failure));
    else if (!done.problem.isEmpty())
        m_log.Error(object, procedure, QStringLiteral("%1: %2; written to %3 instead").arg(title, done.problem, done.destination));
    if (done.failure.isEmpty())
        m_log.Ok(object, procedure, QStringLiteral("%1 printed to %2").arg(title, done.destination));
    Q_EMIT Printed(title, done.destination);
}
