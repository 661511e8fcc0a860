#pragma once
#include <QString>
#include <QStringList>

class QPagedPaintDevice;

// The printed sheets of carts and families: a title and lines of text on A4 pages. They go to
// the station's printer through the print service (CUPS) when the station names one, and
// otherwise, or when that printer cannot take the job, to a PDF file in the station's reports
// folder, so that a report is never lost. Printing needs the GUI application (fonts).
class CartReport
{
public:
    // Where the sheets went: "printer NAME" or the PDF's path, and, when the named printer
    // could not be used, why (the PDF was written instead).
    struct Outcome
    {
        QString destination;
        QString problem;
    };

    // printer: the print service's name of the station's printer; empty for PDF files.
    CartReport(QString folder, QString printer);

    // Prints the sheets; throws KernelError when neither the printer nor the PDF file can be
    // written. The PDF is <folder>/<stem>-<yyyyMMdd-hhmmsszzz>.pdf, the folder made when missing.
    Outcome Print(const QString& stem, const QString& title, const QStringList& lines) const;

private:
    // The job sent to the named printer; empty when it went, else what went wrong.
    QString ToPrinter(const QString& title, const QStringList& lines) const;
    QString ToPdf(const QString& stem, const QString& title, const QStringList& lines) const;
    // Paints the title, the time of printing and the lines, starting pages as they fill.
    static bool Paint(QPagedPaintDevice& device, const QString& title, const QStringList& lines);

    QString m_folder;
    QString m_printer;
};
