#include "web/PortalPages.h"
#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "kernelapi/CKernel.h"

namespace PortalPages {
QString UpdatePath(const Identity& identity)
{
    return QStringLiteral("/customer/update.php?kernelversion=") + UrlEncode(identity.kernelVersion)
           + QStringLiteral("&interfaceversion=") + UrlEncode(identity.interfaceVersion);
}

QString IdentificationPath(const Identity& identity)
{
    return QStringLiteral("/customer/identification.php?clusterid=[unknown]&stationid=") + UrlEncode(identity.stationID)
           + QStringLiteral("&stationip=") + UrlEncode(identity.localAddress);
}

QUrl Page(const QString& address, const QString& pathAndQuery)
{
    QString base = address.trimmed();
    while (base.endsWith(QLatin1Char('/')))
        base.chop(1);
    return QUrl(base + pathAndQuery);
}

QString Address()
{
    const auto kernel = Globals::Kernel();
    const QString stored = kernel ? kernel->Config(QLatin1String(AddressKey)).toString().trimmed() : QString();
    return stored.isEmpty() ? QString::fromLatin1(DefaultAddress) : stored;
}
}
