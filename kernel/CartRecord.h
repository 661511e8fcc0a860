#pragma once
#include "kernelapi/iCart.h"
#include <QDateTime>
#include <QString>

// What the catalogue holds of one cart: its Cart row and, for a sound cart, the marks of its
// Sound row that its lengths are read from. Dates are invalid when the row has none.
struct CartRecord
{
    QString id;
    CartType type = CartType::Unknown;
    QString description;
    QString comment;
    QDateTime startDate;
    QDateTime stopDate;
    qint32 time = 0;
    bool hasSound = false; // a Sound row exists
    qint32 soundStart = 0;
    qint32 soundStop = 0;
    qint32 startMark = 0;
    qint32 stopMark = 0;

    bool operator==(const CartRecord&) const = default;
};
