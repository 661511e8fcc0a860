#include "browse/CartRows.h"
#include "foundation/Strings.h"
#include "kernelapi/iCart.h"

namespace CartRows {
namespace {
const QString& Points()
{
    static const QString points(200, QLatin1Char('.'));
    return points;
}

const QString& TypeIcon(CartType type)
{
    // One shared text per kind, so ten thousand rows hold no copy of it.
    static const QString icons[] = {QStringLiteral("-1"), QStringLiteral("0"), QStringLiteral("1"),
                                    QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")};
    const int index = int(type) + 1;
    return icons[index >= 0 && index <= 5 ? index : 0];
}

BrowserRow Around(const QString& id, const QString& text)
{
    BrowserRow row;
    row.key = id + AroundSeparatorKey;
    row.icon = AroundSeparatorKey;
    row.text = text;
    row.sub1 = text;
    row.sub2 = text;
    return row;
}
}

BrowserRow Blank()
{
    BrowserRow row;
    row.key = BlankKey;
    row.icon = BlankKey;
    return row;
}

BrowserRow Ghost()
{
    BrowserRow row;
    row.key = GhostKey;
    row.icon = GhostKey;
    return row;
}

void SetCartInfo(BrowserRow& row, const iCart& cart)
{
    const qint32 ms = cart.Time();
    row.sub1 = cart.Type() == CartType::Control ? QString() : MsToHuman(ms).left(8);
    row.sub2 = cart.Title();
    row.ms = ms;
}

void Append(std::vector<BrowserRow>& rows, const iCart* cart)
{
    if (!cart) {
        rows.push_back(Blank());
        return;
    }
    const QString id = cart->ID();
    const CartType type = cart->Type();
    BrowserRow row;
    row.key = id;
    row.text = id;
    row.icon = TypeIcon(type);
    if (type == CartType::Unknown) {
        row.sub2 = QStringLiteral("[Unknown]");
        rows.push_back(std::move(row));
        return;
    }
    if (type == CartType::Separator) {
        rows.push_back(Around(id, Points()));
        row.sub2 = cart->Title();
        row.heading = true;
        rows.push_back(std::move(row));
        rows.push_back(Around(id, QString()));
        return;
    }
    SetCartInfo(row, *cart);
    rows.push_back(std::move(row));
}
}
