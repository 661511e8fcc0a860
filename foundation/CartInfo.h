#pragma once
#include <QString>

// One cart as the shared recordsets hold it: the first seven fields from table Cart, the rest
// from table Sound, all as text (Null reads as empty).
struct CartInfo
{
    QString ID, Descripcio, Comentari, Type, StartDate, StopDate, Time;
    QString Filename, Start, Stop, StartMark, StopMark, ClientID;

    bool operator==(const CartInfo&) const = default;
};

// What ReadCartInfo found.
struct CartInfoRead
{
    CartInfo info;
    // A sound cart ("S") whose Sound row is missing; info is then the empty record.
    bool soundMissing = false;
};

// Reads one cart from the shared recordsets RsCart and RsSound. A blank ID or an ID not in
// Cart gives the empty record. Throws KernelError when the recordsets are not open.
CartInfoRead ReadCartInfo(const QString& cartID);
// One field of table Cart for that cart, empty when there is no such cart.
QString GetCartField(const QString& fieldName, const QString& cartID);
