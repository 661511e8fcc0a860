#include "foundation/ui/GetCartInfo.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"

CartInfo GetCartInfo(const QString& cartID)
{
    const CartInfoRead read = ReadCartInfo(cartID);
    if (read.soundMissing) {
        Dialogs::MessageBox(Tr(QStringLiteral("Error loading this sound. ")) + QLatin1Char('\n')
                            + Tr(QStringLiteral("You must call to the administrator or super user. ")) + QLatin1Char('\n')
                            + Tr(QStringLiteral("Rutine: GetCartInfo() Cart: ")) + cartID.trimmed());
    }
    return read.info;
}
