#pragma once
#include <QString>
#include <QUrl>

// The addresses of the maker's customer portal. The portal's address is the shared key
// PortalURL; the paths are fixed.
namespace PortalPages {
inline constexpr const char* AddressKey = "PortalURL";
// Used when PortalURL is empty: a host name that the station's network (DNS or /etc/hosts)
// points at the portal.
inline constexpr const char* DefaultAddress = "http://korvane-portal";

struct Identity
{
    QString kernelVersion;
    QString interfaceVersion;
    QString stationID;
    QString localAddress;
};

// "/customer/update.php?kernelversion=K&interfaceversion=I", each value through UrlEncode.
QString UpdatePath(const Identity& identity);
// "/customer/identification.php?clusterid=[unknown]&stationid=S&stationip=A".
QString IdentificationPath(const Identity& identity);
// The portal address (without a trailing "/") followed by a path that starts with "/".
// The path's escapes are kept as written.
QUrl Page(const QString& address, const QString& pathAndQuery);
// The portal's address from the shared store, or the default when it is empty.
QString Address();
}
