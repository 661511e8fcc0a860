#include "kernel/Carts.h"
#include "kernel/Sound.h"
#include "foundation/db/Database.h"
#include "kernel/Cart.h"
#include "kernel/CartID.h"
#include "kernel/CartList.h"
#include "kernel/CartWorld.h"
#include "kernel/Macro.h"
#include "kernel/SoundFile.h"
#include "kernelapi/KernelError.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
const QString Object = QStringLiteral("iCarts");

// A file name beside the given one that no file has yet: the name itself, else with "-2",
// "-3", ... before the extension.
QString FreeFileName(const QString& folder, const QString& relativeName)
{
    const QFileInfo info(relativeName);
    const QString directory = info.path() == QLatin1String(".") ? QString() : info.path() + u'/';
    const QString suffix = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
    QString name = relativeName;
    for (int n = 2; QFileInfo::exists(folder + name); ++n)
        name = QStringLiteral("%1%2-%3%4").arg(directory, info.completeBaseName()).arg(n).arg(suffix);
    return name;
}

QString FullPath(const QString& folder, const QString& storedName)
{
    return QDir::isAbsolutePath(storedName) ? storedName : folder + storedName;
}
}

Carts::Carts(std::shared_ptr<CartWorld> world, QObject* parent) : iCarts(parent), m_world(std::move(world)) {}

Carts::~Carts() = default;

bool Carts::Exists(const QString& cartID) const
{
    return CartID::IsValid(cartID) && m_world->Store().Exists(CartID::Normalized(cartID));
}

int Carts::NumberOf(const QString& cartID) const
{
    return CartID::NumberOf(CartID::Require(cartID));
}

QString Carts::FamilyIDOf(const QString& cartID) const
{
    return CartID::FamilyOf(CartID::Normalized(cartID));
}

std::shared_ptr<iCart> Carts::NewCart()
{
    return m_world->NewCart();
}

std::shared_ptr<iCartList> Carts::NewCollection()
{
    return std::make_shared<CartList>();
}

std::shared_ptr<iMacro> Carts::NewMacro()
{
    return std::make_shared<Macro>(m_world);
}

std::shared_ptr<iCart> Carts::Cart(const QString& cartID)
{
    return m_world->LiveCart(CartID::Require(cartID));
}

std::shared_ptr<iMacro> Carts::MacroByID(const QString& macroID)
{
    const QString id = CartID::Require(macroID);
    if (std::shared_ptr<Macro> macro = m_macros.value(id).lock())
        return macro;
    auto macro = std::make_shared<Macro>(m_world);
    macro->LoadByID(id);
    m_macros.removeIf([](const auto& entry) { return entry.value().expired(); });
    m_macros.insert(id, macro);
    return macro;
}

Outcome Carts::DeleteCart(const QString& cartID, bool removeFile)
{
    try {
        const QString id = CartID::Require(cartID);
        if (!m_world->Store().Exists(id))
            throw KernelError(QStringLiteral("Cart %1 does not exist").arg(id));
        const std::shared_ptr<::Cart> cart = m_world->LiveCart(id);
        QString file;
        m_world->Db()->Transaction([&] {
            if (cart->Type() == CartType::Sound)
                file = cart->RemoveSound(removeFile);
            m_world->Store().Delete(id);
        });
        // The file goes only once the rows are gone for good.
        Sound::DeleteFiles(file);
        m_world->Deleted(id);
        m_world->Log().Ok(Object, QStringLiteral("DeleteCart"), QStringLiteral("Cart %1 deleted%2").arg(id, removeFile ? QStringLiteral(" with its file") : QString()));
        return {};
    } catch (const KernelError& e) {
        m_world->Log().Warn(Object, QStringLiteral("DeleteCart"), e.Description());
        return {true, e.Description()};
    }
}

bool Carts::CopyCart(const QString& sourceID, const QString& destinationID)
{
    const QString refusal = Refusal(sourceID, destinationID);
    if (!refusal.isEmpty())
        return Refuse(QStringLiteral("CopyCart"), refusal);
    const QString from = CartID::Normalized(sourceID);
    const QString to = CartID::Normalized(destinationID);
    QStringList made; // files written for the copy, removed again if the rows fail
    try {
        const QString fileName = CopySoundFile(from, to, made);
        m_world->Db()->Transaction([&] { m_world->Store().Copy(from, to, fileName); });
    } catch (const KernelError& e) {
        for (const QString& file : made)
            QFile::remove(file);
        return Refuse(QStringLiteral("CopyCart"), e.Description());
    }
    m_world->Written(to, true, nullptr);
    m_world->Log().Ok(Object, QStringLiteral("CopyCart"), QStringLiteral("Cart %1 copied to %2").arg(from, to));
    return true;
}

bool Carts::MoveCart(const QString& sourceID, const QString& destinationID)
{
    const QString refusal = Refusal(sourceID, destinationID);
    if (!refusal.isEmpty())
        return Refuse(QStringLiteral("MoveCart"), refusal);
    const QString from = CartID::Normalized(sourceID);
    const QString to = CartID::Normalized(destinationID);
    try {
        m_world->Db()->Transaction([&] { m_world->Store().Move(from, to); });
    } catch (const KernelError& e) {
        return Refuse(QStringLiteral("MoveCart"), e.Description());
    }
    m_world->Moved(from, to);
    m_world->Log().Ok(Object, QStringLiteral("MoveCart"), QStringLiteral("Cart %1 moved to %2").arg(from, to));
    return true;
}

QString Carts::Refusal(const QString& sourceID, const QString& destinationID) const
{
    for (const QString& id : {sourceID, destinationID}) {
        if (!CartID::IsValid(id))
            return QStringLiteral("'%1' is not a cart ID").arg(id);
    }
    const QString from = CartID::Normalized(sourceID);
    const QString to = CartID::Normalized(destinationID);
    if (from == to)
        return QStringLiteral("%1 is both source and destination").arg(from);
    if (!m_world->Store().Exists(from))
        return QStringLiteral("the source %1 does not exist").arg(from);
    if (m_world->Store().Exists(to))
        return QStringLiteral("the destination %1 exists already").arg(to);
    return {};
}

bool Carts::Refuse(const QString& procedure, const QString& reason) const
{
    m_world->Log().Warn(Object, procedure, QStringLiteral("Refused: ") + reason);
    return false;
}

// The copy's audio file is named after the new ID, with the source's extension and folder.
// A source with no file keeps its stored name.
QString Carts::CopySoundFile(const QString& sourceID, const QString& destinationID, QStringList& made) const
{
    const QString stored = m_world->Store().FileNameOf(sourceID);
    const QString folder = m_world->SoundFolder();
    const QString source = FullPath(folder, stored);
    if (stored.isEmpty() || !QFileInfo(source).isFile())
        return stored;
    const QFileInfo info(stored);
    const QString directory = QDir::isAbsolutePath(stored) || info.path() == QLatin1String(".") ? QString() : info.path() + u'/';
    const QString name = FreeFileName(folder, directory + destinationID + (info.suffix().isEmpty() ? QString() : u'.' + info.suffix()));
    const QString target = folder + name;
    if (!QFile::copy(source, target))
        throw KernelError(QStringLiteral("The sound file '%1' could not be copied to '%2'").arg(source, target));
    made << target;
    const SoundFile::EnergyFile energy = SoundFile(source).GetEnergyFile();
    if (energy.available) {
        const QString energyTarget = SoundFile(target).GetEnergyFile().fileName;
        if (QFile::copy(energy.fileName, energyTarget))
            made << energyTarget;
    }
    return name;
}
