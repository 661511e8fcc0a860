#include "kernel/Cart.h"
#include "foundation/Strings.h"
#include "foundation/db/Database.h"
#include "kernel/CartID.h"
#include "kernel/CartWorld.h"
#include "kernel/PropertyBag.h"
#include "kernel/Sound.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iFamily.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>

const QDateTime Cart::AlwaysFrom = QDateTime(QDate(2001, 1, 1), QTime(0, 0));
const QDateTime Cart::AlwaysUntil = QDateTime(QDate(2099, 1, 1), QTime(0, 0));

namespace {
const QString Object = QStringLiteral("iCart");

// A date as the cart keeps it: no date for the constants that mean "always valid".
QDateTime Kept(const QDateTime& date, const QDateTime& always)
{
    return date.isValid() && date != always ? date : QDateTime();
}

QString DateText(const QDateTime& date)
{
    return date.toString(QStringLiteral("dd/MM/yyyy hh:mm"));
}

// The fields of a sound carried over to a sound object of another ID.
void CopySound(const iSound& from, iSound& to)
{
    to.SetFileName(from.FileName());
    to.SetFileStart(from.FileStart());
    to.SetFileStop(from.FileStop());
    to.SetFileStartMark(from.FileStartMark());
    to.SetFileStopMark(from.FileStopMark());
    to.SetCustomer(from.Customer());
}
}

Cart::Cart(std::shared_ptr<CartWorld> world, const CartRecord& record, bool temporary)
    : m_world(std::move(world)), m_record(record), m_temporary(temporary)
{
}

Cart::~Cart() = default;

QDateTime Cart::StartDate() const
{
    return m_record.startDate.isValid() ? m_record.startDate : AlwaysFrom;
}

void Cart::SetStartDate(const QDateTime& date)
{
    m_record.startDate = Kept(date, AlwaysFrom);
}

QDateTime Cart::EndDate() const
{
    return m_record.stopDate.isValid() ? m_record.stopDate : AlwaysUntil;
}

void Cart::SetEndDate(const QDateTime& date)
{
    m_record.stopDate = Kept(date, AlwaysUntil);
}

QString Cart::Title() const
{
    return m_record.type == CartType::Unknown ? QStringLiteral("[Unknown]") : m_record.description;
}

std::shared_ptr<iFamily> Cart::Family() const
{
    return m_world->FamilyOf(m_record.id);
}

qint32 Cart::UsefulTime() const
{
    if (m_record.type != CartType::Sound)
        return m_record.time;
    const qint32 start = m_sound ? m_sound->FileStartMark() : m_record.startMark;
    const qint32 stop = m_sound ? m_sound->FileStopMark() : m_record.stopMark;
    return stop > start ? stop - start : m_record.time;
}

QString Cart::TypeName() const
{
    switch (m_record.type) {
    case CartType::Sound:
        return QStringLiteral("Sound");
    case CartType::Macro:
        return QStringLiteral("Macro");
    case CartType::Control:
        return QStringLiteral("Control");
    case CartType::Reserved:
        return QStringLiteral("Reserved");
    case CartType::Separator:
        return QStringLiteral("Separator");
    case CartType::Unknown:
        break;
    }
    return QStringLiteral("Unknown Type");
}

std::shared_ptr<iObjectWithProperties> Cart::Properties() const
{
    if (!m_properties) {
        // A saved cart brings back the properties it was saved with.
        const QString stored = m_record.id.isEmpty() ? QString() : m_world->Store().ReadProperties(m_record.id);
        m_properties = stored.isEmpty() ? std::make_shared<PropertyBag>() : PropertyBag::FromText(stored);
    }
    return m_properties;
}

void Cart::SetID(const QString& id)
{
    const QString normalized = CartID::Normalized(id);
    // The sound of the old ID is read first, so that a save under the new ID carries it.
    if (normalized != m_record.id && m_record.type == CartType::Sound && m_record.hasSound && !m_record.id.isEmpty())
        SoundObject();
    m_record.id = normalized;
}

void Cart::Save()
{
    bool inserted = false;
    m_world->Db()->Transaction([&] { inserted = WriteRows(); });
    Announce(inserted);
}

void Cart::RequireSavable() const
{
    if (m_temporary)
        throw KernelError(QStringLiteral("A temporary copy of cart %1 is never saved").arg(m_record.id));
    CartID::Require(m_record.id);
    if (m_record.type == CartType::Unknown)
        throw KernelError(QStringLiteral("Cart %1 has no type and cannot be saved").arg(m_record.id));
}

bool Cart::WriteRows()
{
    RequireSavable();
    CartStore& store = m_world->Store();
    // A sound cart always has its Sound row: a new one gets an empty sound.
    const bool writeSound = m_record.type == CartType::Sound && (m_sound || !store.HasSound(m_record.id));
    if (writeSound) {
        const std::shared_ptr<::Sound> sound = SoundObject();
        TakeMarks(*sound);
        if (sound->FileStop() > sound->FileStart())
            m_record.time = sound->FileStop() - sound->FileStart();
    }
    const bool inserted = store.Write(m_record);
    if (m_properties)
        store.WriteProperties(m_record.id, m_properties->ToText());
    if (writeSound) {
        SoundObject()->Save();
        m_record.hasSound = true;
    }
    return inserted;
}

void Cart::Announce(bool inserted)
{
    m_world->Written(m_record.id, inserted, this);
    Q_EMIT ChangedProperties();
}

void Cart::TakeMarks(const ::Sound& sound)
{
    m_record.soundStart = sound.FileStart();
    m_record.soundStop = sound.FileStop();
    m_record.startMark = sound.FileStartMark();
    m_record.stopMark = sound.FileStopMark();
}

void Cart::Reload()
{
    const QString id = m_record.id;
    m_record = m_world->Store().Read(id).value_or(CartRecord{});
    m_record.id = id;
    m_sound.reset();
    Q_EMIT ChangedProperties();
}

void Cart::Recheck()
{
    CartRecord stored = m_world->Store().Read(m_record.id).value_or(CartRecord{});
    stored.id = m_record.id;
    if (!(stored == m_record))
        Reload();
}

void Cart::Arrange()
{
    if (!Recalculate(false))
        throw KernelError(QStringLiteral("Cart %1 could not be rebuilt from its sound").arg(m_record.id));
}

bool Cart::Recalculate(bool accurate)
{
    try {
        if (m_temporary || !CartID::IsValid(m_record.id))
            throw KernelError(QStringLiteral("Cart '%1' is not in the catalogue").arg(m_record.id));
        switch (m_record.type) {
        case CartType::Sound:
            return RecalculateSound(accurate);
        case CartType::Macro:
            return RecalculateMacro();
        default:
            return true;
        }
    } catch (const KernelError& e) {
        m_world->Log().Error(Object, QStringLiteral("Recalculate"), QStringLiteral("%1: %2").arg(m_record.id, e.Description()));
        return false;
    }
}

bool Cart::RecalculateSound(bool accurate)
{
    const std::shared_ptr<::Sound> sound = SoundObject();
    sound->Recalculate(accurate);
    TakeMarks(*sound);
    m_record.hasSound = true;
    m_record.time = std::max(0, sound->FileStop() - sound->FileStart());
    StoreTime();
    return true;
}

// A macro lasts as long as its steps together, as they stand in the catalogue.
bool Cart::RecalculateMacro()
{
    qint32 ms = 0;
    for (const QString& step : m_world->Store().Steps(m_record.id)) {
        if (CartID::IsValid(step) && step != m_record.id)
            ms += m_world->LiveCart(step)->Time();
    }
    m_record.time = ms;
    StoreTime();
    return true;
}

void Cart::StoreTime()
{
    m_world->Store().SetTime(m_record.id, m_record.time);
    Announce(false);
}

std::shared_ptr<iSound> Cart::Sound() const
{
    if (m_record.type != CartType::Sound)
        return nullptr;
    return SoundObject();
}

// The sound object of the present ID; a sound made under an earlier ID passes its fields on.
// A new cart has a sound before it has an ID (a file dropped from the desktop plays that way)
// and hands it to the ID it is saved under.
std::shared_ptr<::Sound> Cart::SoundObject() const
{
    if (m_record.type != CartType::Sound)
        throw KernelError(QStringLiteral("Cart '%1' is not a sound cart").arg(m_record.id));
    if (m_sound && m_sound->ID() == m_record.id)
        return m_sound;
    auto sound = std::make_shared<::Sound>(m_world->Db(), m_record.id, m_world->SoundFolder());
    if (m_sound)
        CopySound(*m_sound, *sound);
    m_sound = sound;
    return m_sound;
}

bool Cart::Empty()
{
    try {
        if (m_record.type != CartType::Sound || m_temporary)
            throw KernelError(QStringLiteral("Cart '%1' holds no sound to empty").arg(m_record.id));
        m_world->Db()->Transaction([&] { RemoveSound(false); });
        Announce(false);
        return true;
    } catch (const KernelError& e) {
        m_world->Log().Error(Object, QStringLiteral("Empty"), e.Description());
        return false;
    }
}

QString Cart::RemoveSound(bool removeFile)
{
    CartStore& store = m_world->Store();
    const QString fileName = store.FileNameOf(m_record.id);
    const bool shared = !fileName.isEmpty() && store.FileUsers(fileName) > 1;
    if (removeFile && shared)
        m_world->Log().Warn(Object, QStringLiteral("RemoveSound"),
                            QStringLiteral("%1: the file %2 is kept, another sound uses it").arg(m_record.id, fileName));
    const std::shared_ptr<::Sound> sound = SoundObject();
    const QString file = removeFile && !shared ? sound->FileName() : QString();
    sound->Remove(false);
    m_record.hasSound = false;
    m_record.time = 0;
    m_record.soundStart = m_record.soundStop = m_record.startMark = m_record.stopMark = 0;
    store.SetTime(m_record.id, 0);
    return file;
}

std::shared_ptr<iCart> Cart::TemporaryCopy()
{
    auto copy = std::make_shared<Cart>(m_world, m_record, true);
    copy->m_properties = PropertyBag::CopyOf(Properties());
    if (m_record.type == CartType::Sound && !m_record.id.isEmpty()) {
        copy->m_sound = std::make_shared<::Sound>(m_world->Db(), m_record.id, m_world->SoundFolder());
        CopySound(*SoundObject(), *copy->m_sound);
    }
    return copy;
}

bool Cart::Export(const QString& directory, bool overwrite)
{
    const auto refuse = [&](const QString& reason) {
        m_world->Log().Warn(Object, QStringLiteral("Export"), QStringLiteral("%1 not exported: %2").arg(m_record.id, reason));
        return false;
    };
    if (m_record.type != CartType::Sound || m_record.id.isEmpty())
        return refuse(QStringLiteral("it is not a sound cart"));
    const QString source = SoundObject()->FileName();
    if (source.isEmpty() || !QFileInfo(source).isFile())
        return refuse(QStringLiteral("its sound file '%1' is missing").arg(source));
    if (directory.trimmed().isEmpty() || !QDir().mkpath(directory))
        return refuse(QStringLiteral("the folder '%1' cannot be made").arg(directory));
    const QString target = QDir(directory).filePath(QFileInfo(source).fileName());
    if (QFileInfo::exists(target) && (!overwrite || !QFile::remove(target)))
        return refuse(QStringLiteral("'%1' exists and is not replaced").arg(target));
    if (!QFile::copy(source, target))
        return refuse(QStringLiteral("'%1' could not be written").arg(target));
    m_world->Log().Ok(Object, QStringLiteral("Export"), QStringLiteral("%1 exported to %2").arg(m_record.id, target));
    return true;
}

void Cart::Print(bool header, bool contents)
{
    m_world->PrintReport(Object, QStringLiteral("cart-") + m_record.id, QStringLiteral("Cart ") + m_record.id, [lines = ReportLines(header, contents)] { return lines; });
}

QStringList Cart::ReportLines(bool header, bool contents) const
{
    QStringList lines;
    if (header) {
        lines << QStringLiteral("Type: ") + TypeName() << QStringLiteral("Description: ") + Title()
              << QStringLiteral("Comment: ") + Comment() << QStringLiteral("Valid from: ") + DateText(StartDate())
              << QStringLiteral("Valid until: ") + DateText(EndDate()) << QStringLiteral("Length: ") + MsToClock(Time())
              << QStringLiteral("Useful length: ") + MsToClock(UsefulTime());
    }
    if (contents && m_record.type == CartType::Sound && !m_record.id.isEmpty()) {
        const std::shared_ptr<::Sound> sound = SoundObject();
        lines << QStringLiteral("File: ") + sound->FileName() << QStringLiteral("Customer: ") + sound->Customer()
              << QStringLiteral("Start: %1   Stop: %2").arg(MsToClock(sound->FileStart()), MsToClock(sound->FileStop()))
              << QStringLiteral("Start mark: %1   Stop mark: %2").arg(MsToClock(sound->FileStartMark()), MsToClock(sound->FileStopMark()));
    }
    if (contents && m_record.type == CartType::Macro) {
        const QStringList steps = m_world->Store().Steps(m_record.id);
        for (int i = 0; i < steps.size(); ++i) {
            const QString title = CartID::IsValid(steps[i]) ? m_world->LiveCart(steps[i])->Title() : QString();
            lines << QStringLiteral("%1. %2  %3").arg(i + 1, 3).arg(steps[i].isEmpty() ? QStringLiteral("-------") : steps[i], title);
        }
    }
    return lines;
}
