#pragma once
#include <QString>
#include <QStringList>

// The printed sheets of carts and families: a title and lines of text on A4 pages, written as
// a PDF file into the station's reports folder. Printing needs the GUI application (fonts).
class CartReport
{
public:
    // Writes <folder>/<stem>-<yyyyMMdd-hhmmsszzz>.pdf, making the folder when missing, and
    // returns its path. Throws KernelError when it cannot be written.
    static QString Write(const QString& folder, const QString& stem, const QString& title, const QStringList& lines);

private:
    static void Paint(const QString& path, const QString& title, const QStringList& lines);
};
