#include "browse/DataViewerSheet.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Log.h"
#include "foundation/Strings.h"
#include "foundation/Tr.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iSoundFile.h"
#include "shell/components/CComponent.h"
#include <QDateTime>

namespace {
const QString Object = QStringLiteral("IFDataViewer");

QString TrueFalse(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

// A date with its time of day when it has one.
QString DateText(const QDateTime& date)
{
    if (!date.isValid())
        return {};
    const QString day = date.toString(QStringLiteral("dd/MM/yyyy"));
    return date.time() == QTime(0, 0) ? day : day + u' ' + date.toString(QStringLiteral("hh:mm:ss"));
}

void Property(DataSheet& sheet, const QString& name, const QString& value)
{
    sheet.Property(Tr(name), value);
}

void SoundLines(DataSheet& sheet, const iCart& cart)
{
    const std::shared_ptr<iSound> sound = cart.Sound();
    const std::shared_ptr<iSoundFile> file = sound ? sound->SoundFile() : nullptr;
    Property(sheet, QStringLiteral("FileName"), sound ? sound->FileName() : QString());
    Property(sheet, QStringLiteral("Dur File"), file ? MsToClock(file->Length()) : QString());
}

void StoredCartLines(DataSheet& sheet, const iCart& cart)
{
    sheet.Value(cart.ID());
    Property(sheet, QStringLiteral("Descripció"), cart.Description());
    Property(sheet, QStringLiteral("Comentari"), cart.Comment());
    Property(sheet, QStringLiteral("Data Inicial"), DateText(cart.StartDate()));
    Property(sheet, QStringLiteral("Data Final"), DateText(cart.EndDate()));
    Property(sheet, QStringLiteral("Dur Cart"), MsToClock(cart.Time()));
    Property(sheet, QStringLiteral("Tipus"), cart.TypeName());
    if (cart.Type() == CartType::Sound)
        SoundLines(sheet, cart);
}

void UnknownLines(DataSheet& sheet, qint32 shareType)
{
    sheet.Heading(Tr(QStringLiteral("Unknown")));
    sheet.Heading(Tr(QStringLiteral("ShareType Code")));
    Property(sheet, QStringLiteral("Share Type"), QString::number(shareType));
}
}

namespace DataViewerSheet {
DataSheet Of(const CComponent* source, const QString& viewerName, iCarts& carts)
{
    DataSheet sheet;
    if (!source) {
        sheet.Value(Tr(QStringLiteral("<no source>")));
        return sheet;
    }
    switch (source->ShareType()) {
    case CComponent::ShareNothing:
        sheet.Heading(Tr(QStringLiteral("Void")));
        return sheet;
    case CComponent::ShareCart:
        return OfCart(source->Shared<iCart>().get(), source->Name() != viewerName, carts);
    case CComponent::ShareFamily:
        return OfFamily(source->Shared<iFamily>().get());
    default:
        UnknownLines(sheet, source->ShareType());
        return sheet;
    }
}

DataSheet OfCart(const iCart* cart, bool heading, iCarts& carts)
{
    DataSheet sheet;
    if (heading)
        sheet.Heading(Tr(QStringLiteral("Cart")));
    if (!cart) {
        sheet.Value(Tr(QStringLiteral("<Cart not set>")));
        return sheet;
    }
    const QString id = cart->ID();
    if (id.isEmpty()) {
        sheet.Value(Tr(QStringLiteral("<Blank Cart Name>")));
        return sheet;
    }
    // An ID that is no cart ID is refused by the catalogue: the viewer says why.
    std::shared_ptr<iCart> stored;
    try {
        stored = carts.Cart(id);
    } catch (...) {
        const QString why = DescribeException(std::current_exception());
        LogError(Object, QStringLiteral("LoadCart"), QStringLiteral("CartID = '%1': %2").arg(id, why));
        sheet.Value(id);
        sheet.Value(why);
        return sheet;
    }
    StoredCartLines(sheet, *stored);
    return sheet;
}

DataSheet OfFamily(const iFamily* family)
{
    DataSheet sheet;
    sheet.Heading(Tr(QStringLiteral("Family")));
    if (!family) {
        sheet.Value(Tr(QStringLiteral("<Family not set>")));
        return sheet;
    }
    sheet.Value(family->ID());
    Property(sheet, QStringLiteral("Desc"), family->Description());
    Property(sheet, QStringLiteral("EveryBody (R)"), TrueFalse(family->EveryBody()));
    return sheet;
}
}
