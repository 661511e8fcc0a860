#pragma once
#include "kernel/KernelLog.h"
#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <functional>

// Prints reports away from the UI thread, one after the other, so that a family of ten
// thousand carts never freezes the screens: the caller takes copies of what the report tells,
// the lines are written out and the pages painted and sent on a worker, and where each report went is logged on the UI thread when it
// is done (as an ERROR when the printer failed and a PDF was written instead, or when nothing
// could be written at all).
class ReportPrinter : public QObject
{
    Q_OBJECT
public:
    explicit ReportPrinter(KernelLog log);
    // Waits for the reports in hand; none is cut short.
    ~ReportPrinter() override;

    // Makes the report's lines on the worker (from copies the caller took) and prints them;
    // printer is the print service's name of the station's printer, empty for a PDF in the folder.
    using Lines = std::function<QStringList()>;
    void Print(const QString& object, const QString& folder, const QString& printer, const QString& stem,
               const QString& title, Lines lines);
    // Waits until every report started has been made and logged.
    void WaitForDone();

Q_SIGNALS:
    // A report was made: "printer NAME" or the PDF's path; empty when it failed.
    void Printed(const QString& title, const QString& destination);

private:
    struct Done
    {
        QString destination;
        QString problem;
        QString failure;
    };
    void Finish(const QString& object, const QString& title, const Done& done);

    KernelLog m_log;
    QThreadPool m_worker;
};
