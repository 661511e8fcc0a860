#include "foundation/CartInfo.h"
#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "foundation/db/Recordset.h"
#include "kernelapi/KernelError.h"

namespace {
Recordset& Open(const std::unique_ptr<Recordset>& recordset, const char* table)
{
    if (!recordset)
        throw KernelError(QStringLiteral("The recordset of %1 is not open").arg(QLatin1String(table)));
    return *recordset;
}

// Moves to the row of the cart; false when there is none.
bool FindCart(Recordset& recordset, const QString& cartID)
{
    recordset.FindFirst(QStringLiteral("ID = ") + SqlQuote(cartID));
    return !recordset.NoMatch();
}

QString Field(const Recordset& recordset, const char* name)
{
    return NullToEmpty(recordset.Value(QLatin1String(name)));
}
}

CartInfoRead ReadCartInfo(const QString& cartID)
{
    CartInfoRead read;
    const QString id = cartID.trimmed();
    if (id.isEmpty())
        return read;
    Recordset& carts = Open(Globals::Data().RsCart, "Cart");
    if (!FindCart(carts, id))
        return read;
    CartInfo& info = read.info;
    info.ID = Field(carts, "ID");
    info.Descripcio = Field(carts, "Descripcio");
    info.Comentari = Field(carts, "Comentari");
    info.Type = Field(carts, "Type");
    info.StartDate = Field(carts, "StartDate");
    info.StopDate = Field(carts, "StopDate");
    info.Time = Field(carts, "Time");
    if (info.Type != QLatin1String("S"))
        return read;
    Recordset& sounds = Open(Globals::Data().RsSound, "Sound");
    if (!FindCart(sounds, id))
        return CartInfoRead{CartInfo{}, true};
    info.Filename = Field(sounds, "Filename");
    info.Start = Field(sounds, "Start");
    info.Stop = Field(sounds, "Stop");
    info.StartMark = Field(sounds, "StartMark");
    info.StopMark = Field(sounds, "StopMark");
    info.ClientID = Field(sounds, "ClientID");
    return read;
}

QString GetCartField(const QString& fieldName, const QString& cartID)
{
    Recordset& carts = Open(Globals::Data().RsCart, "Cart");
    if (!FindCart(carts, cartID.trimmed()))
        return {};
    return NullToEmpty(carts.Value(fieldName));
}
