#include "support/TempStation.h"
#include "kernelapi/KernelError.h"
#include "tools/StationBuilder.h"
#include <QFile>

namespace {
const char* const StationVariable = "KORVANE_STATION";

QString MustBeValid(const QTemporaryDir& dir)
{
    if (!dir.isValid())
        throw KernelError(QStringLiteral("Cannot make a temporary folder: %1").arg(dir.errorString()));
    return dir.path();
}

StationOptions Options(const QString& dir, int carts, SoundLength soundLength)
{
    StationOptions options;
    options.dir = dir;
    options.carts = carts;
    options.soundLength = soundLength;
    return options;
}
}

TempStation::TempStation(int benchmarkCarts, SoundLength soundLength)
    : m_folder(MustBeValid(m_temp))
{
    m_report = StationBuilder(Options(m_folder.Root(), benchmarkCarts, soundLength)).Create();
    if (qEnvironmentVariableIsSet(StationVariable))
        m_previousStation = qgetenv(StationVariable);
    qputenv(StationVariable, QFile::encodeName(m_folder.Root()));
}

TempStation::~TempStation()
{
    if (m_previousStation)
        qputenv(StationVariable, *m_previousStation);
    else
        qunsetenv(StationVariable);
}
