#include "kernel/CartReport.h"
#include "kernelapi/KernelError.h"
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

namespace {
constexpr int PdfResolution = 300; // dots per inch of a PDF page

QFont Font(int points, bool bold)
{
    QFont font(QStringLiteral("Sans Serif"), points);
    font.setBold(bold);
    return font;
}
}

CartReport::CartReport(QString folder, QString printer)
    : m_folder(std::move(folder)), m_printer(printer.trimmed())
{
}

CartReport::Outcome CartReport::Print(const QString& stem, const QString& title, const QStringList& lines) const
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        throw KernelError(QStringLiteral("'%1' cannot be printed without the workstation's display").arg(title));
    Outcome outcome;
    if (!m_printer.isEmpty()) {
        outcome.problem = ToPrinter(title, lines);
        if (outcome.problem.isEmpty()) {
            outcome.destination = QStringLiteral("printer ") + m_printer;
            return outcome;
        }
    }
    outcome.destination = ToPdf(stem, title, lines);
    return outcome;
}

QString CartReport::ToPrinter(const QString& title, const QStringList& lines) const
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(m_printer);
    if (info.isNull())
        return QStringLiteral("the printer '%1' is not known to the print service").arg(m_printer);
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(title);
    printer.setCreator(QStringLiteral("Korvane"));
    printer.setPageSize(QPageSize(QPageSize::A4));
    if (!Paint(printer, title, lines))
        return QStringLiteral("the printer '%1' refused the job").arg(m_printer);
    return {};
}

QString CartReport::ToPdf(const QString& stem, const QString& title, const QStringList& lines) const
{
    if (!QDir().mkpath(m_folder))
        throw KernelError(QStringLiteral("The reports folder '%1' cannot be made").arg(m_folder));
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmsszzz"));
    const QString path = QDir(m_folder).filePath(QStringLiteral("%1-%2.pdf").arg(stem, stamp));
    {
        QPdfWriter writer(path);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setResolution(PdfResolution);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Korvane"));
        if (!Paint(writer, title, lines))
            throw KernelError(QStringLiteral("The report '%1' cannot be opened for writing").arg(path));
    }
    if (QFileInfo(path).size() == 0)
        throw KernelError(QStringLiteral("The report '%1' could not be written").arg(path));
    return path;
}

bool CartReport::Paint(QPagedPaintDevice& device, const QString& title, const QStringList& lines)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const int margin = device.logicalDpiY() / 2;
    const int bottom = device.height() - margin;
    painter.setFont(Font(14, true));
    int y = margin + painter.fontMetrics().ascent();
    painter.drawText(margin, y, title);
    y += painter.fontMetrics().height();
    painter.setFont(Font(8, false));
    painter.drawText(margin, y, QStringLiteral("Printed ") + QDateTime::currentDateTime().toString(QStringLiteral("dd/MM/yyyy hh:mm:ss")));
    painter.setFont(Font(10, false));
    const int step = painter.fontMetrics().height();
    y += 2 * step;
    for (const QString& line : lines) {
        if (y > bottom) {
            device.newPage();
            y = margin + step;
        }
        painter.drawText(margin, y, line);
        y += step;
    }
    return painter.end();
}
