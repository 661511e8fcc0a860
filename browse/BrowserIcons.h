#pragma once
#include <QIcon>
#include <QString>

// The row pictures of the browsers, drawn in code once per key and shared by every row:
// cart kinds by type number ("0" sound, "1" macro, "2" control, "3" reserved, "4" separator,
// "-1" unknown), "Blank", "Ghost", "BlueArrow", "RedArrow", the signal arrows "Arrow" + colour
// name ("ArrowBlue", "ArrowRed", "ArrowGreen", "ArrowYellow", "ArrowGray"), and the family
// rights "Family1" (not readable) to "Family5". An unknown or empty key has no picture.
namespace BrowserIcons {
const QIcon& Icon(const QString& key);
}
