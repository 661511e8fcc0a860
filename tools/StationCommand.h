#pragma once
#include <QStringList>
#include <QTextStream>

struct StationOptions;
struct StationReport;

// The command line of korvane-station:
//   korvane-station create DIR [--carts N] [--database URI [--workstation URI]]
//   korvane-station migrate DIR --to URI [--workstation URI]
//   korvane-station import DIR FILES... [--family XXX]
// Run returns the process exit code: 0 on success, 1 on any refusal or failure, with the
// reason on the error stream. An import goes on past a file it cannot read and ends with 1.
class StationCommand
{
public:
    StationCommand(QTextStream& out, QTextStream& err);

    // arguments without the program name.
    int Run(const QStringList& arguments);

private:
    StationOptions ParseCreate(const QStringList& arguments) const;
    int Import(const QStringList& arguments);
    int Migrate(const QStringList& arguments);
    static int ParseCarts(const QString& text);
    void PrintReport(const StationReport& report);
    // The demo families one by one, the benchmark families as a range.
    static QString FamilyList(const StationReport& report);
    static void PrintUsage(QTextStream& stream);

    QTextStream& m_out;
    QTextStream& m_err;
};
