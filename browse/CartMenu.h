#pragma once
#include "foundation/ui/Dialogs.h"
#include "kernelapi/iCart.h"
#include <QDateTime>
#include <QList>
#include <QString>
#include <QVector>

// The cart browser's popup menu, without widgets: its lines for the selected cart, the
// browser's mode and the families the user may write, and what a chosen key asks for.
// Texts pass through the translator. A line that picks a number (a free slot) carries it as
// its data and also after a "#" in its key, so the chosen line is known from the key alone.
namespace CartMenu {
inline const QString CartOwner = QStringLiteral("IFBrowserCart.");
inline const QString FamilyOwner = QStringLiteral("CFamily.");
inline const QString CancelKey = QStringLiteral("Cancel");
inline const QString SendTo = QStringLiteral("SendTo.");
inline const QString DuplicateTo = QStringLiteral("DuplicateTo.");
inline const QString Others = QStringLiteral("Others");

// A family the user may write and its free slots, in order.
struct Destination
{
    QString familyID;
    QList<int> freeSlots;
};

struct Context
{
    // The selected cart; without one the "Cart" block is its heading alone.
    bool hasCart = false;
    CartType type = CartType::Unknown;
    QString cartID;
    // The family the "Family" block works on and its free slots around the selected cart.
    QString familyID;
    QList<int> spacerSlots;
    QVector<Destination> destinations;
    int mode = 0;
    bool fastDeletion = false;
    QDateTime fastDeletionDeadline;
    bool printingMenus = false;
};

QVector<Dialogs::PopupLine> Lines(const Context& context);

// A chosen key taken apart: the action with its owner ("IFBrowserCart.SendTo."), the family
// of a move or a duplicate, and the number after "#" (0 when there is none).
struct Choice
{
    QString action;
    QString familyID;
    int number = 0;
};
Choice Parse(const QString& key);
}
