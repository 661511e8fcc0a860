#include "tools/StationCommand.h"
#include "kernelapi/KernelError.h"
#include "tools/BulkCatalogue.h"
#include "tools/DemoCatalogue.h"
#include "tools/StationBuilder.h"
#include "tools/StationOptions.h"
#include "tools/StationReport.h"
#include <QDir>

StationCommand::StationCommand(QTextStream& out, QTextStream& err) : m_out(out), m_err(err) {}

int StationCommand::Run(const QStringList& arguments)
{
    if (!arguments.isEmpty() && (arguments.first() == QLatin1String("--help") || arguments.first() == QLatin1String("-h"))) {
        PrintUsage(m_out);
        return 0;
    }
    if (arguments.isEmpty() || arguments.first() != QLatin1String("create")) {
        PrintUsage(m_err);
        return 1;
    }
    try {
        PrintReport(StationBuilder(ParseCreate(arguments.mid(1))).Create());
        return 0;
    } catch (const KernelError& e) {
        m_err << "korvane-station: " << e.Description() << Qt::endl;
        return 1;
    }
}

StationOptions StationCommand::ParseCreate(const QStringList& arguments) const
{
    StationOptions options;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        const bool valued = argument == QLatin1String("--carts") || argument == QLatin1String("--database");
        if (valued && i + 1 >= arguments.size())
            throw KernelError(QStringLiteral("%1 needs a value").arg(argument));
        if (argument == QLatin1String("--carts"))
            options.carts = ParseCarts(arguments[++i]);
        else if (argument == QLatin1String("--database"))
            options.database = arguments[++i];
        else if (argument.startsWith(QLatin1String("--")))
            throw KernelError(QStringLiteral("Unknown option %1").arg(argument));
        else if (!options.dir.isEmpty())
            throw KernelError(QStringLiteral("Only one station folder may be given ('%1' and '%2')").arg(options.dir, argument));
        else
            options.dir = argument;
    }
    if (options.dir.isEmpty())
        throw KernelError(QStringLiteral("No station folder given: korvane-station create DIR [--carts N] [--database URI]"));
    return options;
}

int StationCommand::ParseCarts(const QString& text)
{
    bool ok = false;
    const int carts = text.toInt(&ok);
    if (!ok || carts < 0 || carts > BulkCatalogue::MaxCarts)
        throw KernelError(QStringLiteral("--carts takes a whole number from 0 to %1, not '%2'").arg(BulkCatalogue::MaxCarts).arg(text));
    return carts;
}

void StationCommand::PrintReport(const StationReport& report)
{
    m_out << "Station created in " << QDir::toNativeSeparators(report.dir) << Qt::endl
          << "  families:  " << report.families.size() << " (" << FamilyList(report) << ")" << Qt::endl
          << "  carts:     " << report.demoCarts + report.bulkCarts << " (" << report.demoCarts << " demo, "
          << report.bulkCarts << " benchmark)" << Qt::endl
          << "  users:     " << report.users << ", groups: " << report.groups << ", customers: " << report.customers << Qt::endl
          << "  sound files: " << report.soundFiles << ", translations: " << report.translations << Qt::endl
          << "Log in as " << DemoCatalogue::AdminID << " with password \"" << DemoCatalogue::AdminPassword
          << "\" (administrator) or " << DemoCatalogue::PresenterID << " with \"" << DemoCatalogue::PresenterPassword
          << "\"." << Qt::endl
          << "Start the workstation with KORVANE_STATION=" << QDir::toNativeSeparators(report.dir) << Qt::endl;
}

QString StationCommand::FamilyList(const StationReport& report)
{
    const int bulk = (report.bulkCarts + BulkCatalogue::FamilySize - 1) / BulkCatalogue::FamilySize;
    QStringList shown = report.families.mid(0, report.families.size() - bulk);
    if (bulk > 0)
        shown << QStringLiteral("%1 to %2").arg(BulkCatalogue::FamilyID(0), BulkCatalogue::FamilyID(bulk - 1));
    return shown.join(QLatin1Char(' '));
}

void StationCommand::PrintUsage(QTextStream& stream)
{
    stream << "Usage: korvane-station create DIR [--carts N] [--database URI]" << Qt::endl
          << "  Creates a demo station in DIR: databases, users, families, carts and generated audio." << Qt::endl
          << "  --carts N       adds N sound carts for benchmarks, in families of 10,000 (BAA, BAB, ...)" << Qt::endl
          << "  --database URI  where the catalogue lives; only the default SQLite files for now" << Qt::endl;
}
