#include "kernel/RecorderTarget.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/Cart.h"
#include "kernel/CartID.h"
#include "kernel/CartWorld.h"
#include "kernel/EnergyFile.h"
#include "kernel/Sound.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iSound.h"
#include <QBitArray>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

RecorderTarget::RecorderTarget(std::shared_ptr<CartWorld> world, const QString& cartID, bool blank)
    : m_world(std::move(world)), m_cartID(cartID), m_blank(blank)
{
}

void RecorderTarget::RequireFamily(CartWorld& world, const QString& familyID)
{
    if (!world.FamilyOf(CartID::Make(familyID, 0)))
        throw KernelError(QStringLiteral("There is no family %1 to record into").arg(familyID));
}

std::optional<RecorderTarget> RecorderTarget::Blank(std::shared_ptr<CartWorld> world, const QString& familyID)
{
    const QString family = CartID::RequireFamily(familyID);
    RequireFamily(*world, family);
    const std::optional<int> number = FreeNumber(*world, family);
    if (!number)
        return std::nullopt;
    return RecorderTarget(std::move(world), CartID::Make(family, *number), true);
}

RecorderTarget RecorderTarget::OfCart(std::shared_ptr<CartWorld> world, const QString& cartID)
{
    const QString id = CartID::Require(cartID);
    RequireFamily(*world, CartID::FamilyOf(id));
    const CartType type = world->LiveCart(id)->Type();
    if (type != CartType::Sound && type != CartType::Unknown)
        throw KernelError(QStringLiteral("Cart %1 is not a sound cart: nothing can be recorded into it").arg(id));
    return RecorderTarget(std::move(world), id, false);
}

std::optional<int> RecorderTarget::FreeNumber(CartWorld& world, const QString& familyID)
{
    QBitArray occupied(CartID::Slots);
    int highest = -1;
    for (const CartRecord& record : world.Store().ReadFamily(familyID)) {
        const int number = CartID::NumberOf(record.id);
        occupied.setBit(number);
        highest = std::max(highest, number);
    }
    if (highest + 1 < CartID::Slots)
        return highest + 1;
    for (int number = 0; number < CartID::Slots; ++number)
        if (!occupied.testBit(number))
            return number;
    return std::nullopt;
}

QString RecorderTarget::FamilyID() const
{
    return CartID::FamilyOf(m_cartID);
}

QString RecorderTarget::Title() const
{
    if (m_blank)
        return m_cartID;
    return m_world->LiveCart(m_cartID)->Title();
}

qint32 RecorderTarget::LengthMs() const
{
    return m_blank ? 0 : m_world->LiveCart(m_cartID)->Time();
}

// The name carries the time of the take, so that a take never replaces the file of the sound
// it is to replace, nor a take left behind by an earlier failure.
QString RecorderTarget::NewTakePath(const QString& extension) const
{
    const QString folder = m_world->SoundFolder();
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString name = QStringLiteral("%1-%2.%3").arg(m_cartID, stamp, extension);
    for (int n = 1; QFileInfo::exists(folder + name) || QFileInfo::exists(EnergyFile::PathFor(folder + name)); ++n)
        name = QStringLiteral("%1-%2-%3.%4").arg(m_cartID, stamp).arg(n).arg(extension);
    return folder + name;
}

std::shared_ptr<Cart> RecorderTarget::TargetCart()
{
    if (m_blank && m_world->Store().Exists(m_cartID)) {
        const std::optional<int> number = FreeNumber(*m_world, FamilyID());
        if (!number)
            throw KernelError(QStringLiteral("The family %1 has no free number left for the recording").arg(FamilyID()));
        m_cartID = CartID::Make(FamilyID(), *number);
    }
    std::shared_ptr<Cart> cart = m_world->LiveCart(m_cartID);
    if (cart->Type() == CartType::Unknown) {
        cart->SetType(CartType::Sound);
        cart->SetDescription(QStringLiteral("Recording of %1").arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm"))));
    }
    return cart;
}

void RecorderTarget::Commit(const QString& takePath, const AudioFileInfo& info)
{
    const std::shared_ptr<Cart> cart = TargetCart();
    const std::shared_ptr<iSound> sound = cart->Sound();
    const QString oldFile = sound->FileName();
    const qint32 ms = info.LengthMs();
    sound->SetFileName(takePath);
    sound->SetFileStart(0);
    sound->SetFileStop(ms);
    sound->SetFileStartMark(0);
    sound->SetFileStopMark(ms);
    sound->Update();
    cart->Save();
    m_blank = false;
    if (!oldFile.isEmpty() && QFileInfo(oldFile) != QFileInfo(takePath)
        && m_world->Store().FileUsers(QDir(m_world->SoundFolder()).relativeFilePath(oldFile)) == 0
        && m_world->Store().FileUsers(oldFile) == 0)
        ::Sound::DeleteFiles(oldFile);
}
