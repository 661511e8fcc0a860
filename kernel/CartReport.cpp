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

namespace {
constexpr int Resolution = 300; // dots per inch of the page
constexpr int Margin = Resolution / 2;

QFont Font(int points, bool bold)
{
    QFont font(QStringLiteral("Sans Serif"), points);
    font.setBold(bold);
    return font;
}
}

QString CartReport::Write(const QString& folder, const QString& stem, const QString& title, const QStringList& lines)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        throw KernelError(QStringLiteral("'%1' cannot be printed without the workstation's display").arg(title));
    if (!QDir().mkpath(folder))
        throw KernelError(QStringLiteral("The reports folder '%1' cannot be made").arg(folder));
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmsszzz"));
    const QString path = QDir(folder).filePath(QStringLiteral("%1-%2.pdf").arg(stem, stamp));
    Paint(path, title, lines);
    if (QFileInfo(path).size() == 0)
        throw KernelError(QStringLiteral("The report '%1' could not be written").arg(path));
    return path;
}

void CartReport::Paint(const QString& path, const QString& title, const QStringList& lines)
{
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(Resolution);
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Korvane"));
    QPainter painter;
    if (!painter.begin(&writer))
        throw KernelError(QStringLiteral("The report '%1' cannot be opened for writing").arg(path));
    const int bottom = writer.height() - Margin;
    painter.setFont(Font(14, true));
    int y = Margin + painter.fontMetrics().ascent();
    painter.drawText(Margin, y, title);
    y += painter.fontMetrics().height();
    painter.setFont(Font(8, false));
    painter.drawText(Margin, y, QStringLiteral("Printed ") + QDateTime::currentDateTime().toString(QStringLiteral("dd/MM/yyyy hh:mm:ss")));
    painter.setFont(Font(10, false));
    const int step = painter.fontMetrics().height();
    y += 2 * step;
    for (const QString& line : lines) {
        if (y > bottom) {
            writer.newPage();
            y = Margin + step;
        }
        painter.drawText(Margin, y, line);
        y += step;
    }
    painter.end();
}
