#include "browse/CartMenu.h"
#include "foundation/Tr.h"

namespace CartMenu {
namespace {
using Line = Dialogs::PopupLine;

Line Item(const QString& text, const QString& key = {}, bool enabled = true)
{
    Line line = Line::Item(Tr(text), key);
    line.enabled = enabled;
    return line;
}

Line Heading(const QString& text)
{
    return Line::Item(QStringLiteral("-") + Tr(text));
}

Line Sub(const QString& text, std::vector<Line> lines, bool enabled = true)
{
    Line line = Item(text, {}, enabled);
    line.lines = std::move(lines);
    return line;
}

Line Slot(const QString& text, int number, const QString& key)
{
    return Line::Item(text, key + QLatin1Char('#') + QString::number(number), number);
}

// "Are you sure?", "No", then the "Yes" line given.
Line Confirmed(const QString& text, Line yes)
{
    return Sub(text, {Item(QStringLiteral("Are you sure?"), {}, false), Item(QStringLiteral("No"), CancelKey), std::move(yes)});
}

// One sub-menu per writable family with its free slots, and "Others", whose "..." asks for the
// destination with the cart ID dialog.
Line Destinations(const QString& text, const QString& action, const Context& context)
{
    std::vector<Line> families;
    for (const Destination& destination : context.destinations) {
        Line family = Line::Item(destination.familyID);
        for (int number : destination.freeSlots)
            family.lines.push_back(Slot(destination.familyID + QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0')), number, CartOwner + action + destination.familyID));
        families.push_back(std::move(family));
    }
    Line others = Sub(Others, {Item(QStringLiteral("..."), CartOwner + action + Others)});
    others.data = 0;
    families.push_back(std::move(others));
    return Sub(text, std::move(families));
}

Line Recalculate(const QString& owner, bool enabled)
{
    return Sub(QStringLiteral("Recalculate"), {Item(QStringLiteral("Not very accurate (Fast)"), owner + QStringLiteral("RecalculateFast"), enabled),
                                               Item(QStringLiteral("Accurate (Slow)"), owner + QStringLiteral("RecalculateSlow"), enabled)});
}

Line Delete(const Context& context)
{
    const QString leave = FamilyOwner + QStringLiteral("DeleteCartLeaveFile");
    switch (context.type) {
    case CartType::Sound:
        return Confirmed(Tr(QStringLiteral("Delete sound ")) + context.cartID,
                         Sub(QStringLiteral("Yes"), {Item(QStringLiteral("Leave the file on disk"), leave),
                                                     Item(QStringLiteral("Remove also the file"), FamilyOwner + QStringLiteral("DeleteCartDeleteFile"))}));
    case CartType::Macro:
        return Confirmed(Tr(QStringLiteral("Delete macro ")) + context.cartID, Item(QStringLiteral("Yes"), leave));
    case CartType::Control:
        return Confirmed(Tr(QStringLiteral("Delete control ")) + context.cartID, Item(QStringLiteral("Yes"), leave));
    default:
        return Item(QStringLiteral("Delete separator"), leave);
    }
}

void AddCartBlock(QVector<Line>& lines, const Context& context)
{
    const bool sound = context.type == CartType::Sound;
    if (context.type != CartType::Separator) {
        // The sound editor is not offered yet.
        std::vector<Line> edit{Item(QStringLiteral("Edit header"), CartOwner + QStringLiteral("EditCartHeader"))};
        if (sound)
            edit.push_back(Item(QStringLiteral("Edit sound"), CartOwner + QStringLiteral("EditCartSound"), false));
        lines << Sub(QStringLiteral("Edit"), std::move(edit)) << Destinations(QStringLiteral("Duplicate to"), DuplicateTo, context);
    }
    lines << Destinations(QStringLiteral("Move to"), SendTo, context);
    if (sound)
        lines << Sub(QStringLiteral("Export"), {Item(QStringLiteral("To the web"), CartOwner + QStringLiteral("Export1")),
                                                Item(QStringLiteral("For manual treatment"), CartOwner + QStringLiteral("Export2"))});
    lines << Recalculate(CartOwner, true);
    if (sound || context.type == CartType::Macro || context.type == CartType::Control || context.type == CartType::Separator)
        lines << Delete(context);
    if (sound)
        lines << Confirmed(Tr(QStringLiteral("Empty sound ")) + context.cartID, Item(QStringLiteral("Yes"), CartOwner + QStringLiteral("Empty")));
    if (sound || context.type == CartType::Macro)
        lines << Item(sound ? QStringLiteral("Print sound") : QStringLiteral("Print macro"), CartOwner + QStringLiteral("Print"));
}

void AddFamilyBlock(QVector<Line>& lines, const Context& context)
{
    Line spacer = Item(QStringLiteral("Insert spacer at"));
    for (int number : context.spacerSlots)
        spacer.lines.push_back(Slot(context.familyID + QLatin1Char(' ') + QString::number(number), number, FamilyOwner + QStringLiteral("InsertSpacer")));
    lines << Heading(QStringLiteral("Family")) << spacer;
    // Forbid is there only to end a fast deletion that runs.
    if (context.mode == 1) {
        const QString allow = context.fastDeletion ? Tr(QStringLiteral("Allow for 5 min more, currently set at ")) + context.fastDeletionDeadline.toString(QStringLiteral("HH:mm:ss"))
                                                   : Tr(QStringLiteral("Allow for 5 min"));
        lines << Sub(QStringLiteral("Fast deletion"), {Line::Item(allow, FamilyOwner + QStringLiteral("AllowFastDeletion")),
                                                       Item(QStringLiteral("Forbid"), FamilyOwner + QStringLiteral("ForbidFastDeletion"), context.fastDeletion)});
    }
    lines << Recalculate(FamilyOwner, !context.familyID.isEmpty());
    if (context.printingMenus)
        lines << Sub(QStringLiteral("Print family"), {Item(QStringLiteral("Header"), FamilyOwner + QStringLiteral("PrintHeader")),
                                                      Item(QStringLiteral("List of carts"), FamilyOwner + QStringLiteral("PrintContents")),
                                                      Item(QStringLiteral("Header + List of carts"), FamilyOwner + QStringLiteral("PrintHeader+Contents"))});
}
}

QVector<Dialogs::PopupLine> Lines(const Context& context)
{
    QVector<Line> lines{Heading(QStringLiteral("Cart"))};
    if (context.hasCart)
        AddCartBlock(lines, context);
    AddFamilyBlock(lines, context);
    lines << Heading(QStringLiteral("Cancel")) << Item(QStringLiteral("Cancel"), CancelKey);
    return lines;
}

Choice Parse(const QString& key)
{
    Choice choice;
    const qsizetype hash = key.indexOf(QLatin1Char('#'));
    choice.action = hash < 0 ? key : key.left(hash);
    if (hash >= 0)
        choice.number = key.mid(hash + 1).toInt();
    for (const QString& move : {SendTo, DuplicateTo}) {
        const QString prefix = CartOwner + move;
        if (choice.action.startsWith(prefix)) {
            choice.familyID = choice.action.mid(prefix.size());
            choice.action = prefix;
        }
    }
    return choice;
}
}
