#include "foundation/CartNumbers.h"
#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCarts.h"

namespace {
int NumberOf(iCarts& carts, const Recordset& rows)
{
    return carts.NumberOf(NullToEmpty(rows.Value(QStringLiteral("ID"))));
}

QString FourDigits(int number)
{
    return (QStringLiteral("0000") + QString::number(number)).right(4);
}

// The first number of the run from 0 that no row has.
int FirstHole(iCarts& carts, Recordset& rows)
{
    int expected = 0;
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) {
        if (NumberOf(carts, rows) != expected)
            break;
        ++expected;
    }
    return expected;
}
}

QString FreeCartNumber(const QString& prefix, bool fillHoles)
{
    Database* db = Globals::Data().SoundDB.get();
    std::shared_ptr<CKernel> kernel = Globals::Kernel();
    if (!db || !kernel)
        throw KernelError(QStringLiteral("FreeCartNumber needs the sound database and the kernel"));
    // The asterisk is the catalogue dialect's wildcard; the dialect layer translates it.
    std::unique_ptr<Recordset> rows = db->OpenRecordset(QStringLiteral("SELECT * from Cart WHERE ID like ")
                                                        + SqlQuote(prefix + QLatin1Char('*')) + QStringLiteral(" ORDER BY ID"));
    if (rows->RecordCount() == 0)
        return QStringLiteral("0000");
    iCarts& carts = *kernel->Carts();
    if (fillHoles)
        return FourDigits(FirstHole(carts, *rows));
    rows->MoveLast();
    return FourDigits(NumberOf(carts, *rows) + 1);
}
