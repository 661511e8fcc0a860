#include "kernel/SoundImport.h"
#include "foundation/Strings.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "kernel/AudioFile.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyFile.h"
#include "kernel/Sound.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QSqlQuery>

namespace {
constexpr int FamilySlots = 10000;

QString CheckedFamily(const QString& family)
{
    static const QRegularExpression threeLetters(QStringLiteral("^[A-Z]{3}$"));
    const QString id = family.trimmed().toUpper();
    if (!threeLetters.match(id).hasMatch())
        throw KernelError(QStringLiteral("A family ID is three letters, not '%1'").arg(family));
    return id;
}

QString TitleOf(const AudioFile& audio, const QString& path)
{
    const QString title = audio.Title().trimmed();
    const QString artist = audio.Artist().trimmed();
    if (title.isEmpty())
        return QFileInfo(path).completeBaseName();
    return artist.isEmpty() ? title : QStringLiteral("%1 - %2").arg(artist, title);
}
}

SoundImport::SoundImport(std::shared_ptr<Database> db, const QString& soundFolder, const QString& family)
    : m_family(CheckedFamily(family)), m_db(std::move(db)), m_soundFolder(soundFolder)
{
}

SoundImport::~SoundImport() = default;

bool SoundImport::EnsureFamily()
{
    QSqlQuery family = m_db->Query(QStringLiteral("SELECT COUNT(*) FROM Familia WHERE ID = ?"), {m_family});
    if (family.next() && family.value(0).toInt() > 0)
        return false;
    m_db->Query(QStringLiteral("INSERT INTO Familia (ID, Descripcio, Tothom) VALUES (?, ?, ?)"),
                {m_family, QStringLiteral("Imported sounds"), true});
    return true;
}

QString SoundImport::ImportFile(const QString& path)
{
    QString title;
    const AudioFileInfo info = Check(path, title);
    const QString id = FreeID();
    const QString target = TargetFor(id, path);
    if (!QDir().mkpath(m_soundFolder) || !QFile::copy(path, target))
        throw KernelError(QStringLiteral("Cannot copy '%1' to '%2'").arg(path, target));
    try {
        EnergyFile::Write(EnergyFile::PathFor(target), info);
        WriteRows(id, title, target, info);
    } catch (...) {
        QFile::remove(target);
        QFile::remove(EnergyFile::PathFor(target));
        throw;
    }
    return id;
}

// Decodes the whole file, so that a file damaged half way is refused before it is copied.
AudioFileInfo SoundImport::Check(const QString& path, QString& title) const
{
    const QFileInfo file(path);
    if (file.isFile() && file.size() == 0)
        throw Refusal(QStringLiteral("The file '%1' is empty (0 bytes)").arg(path));
    try {
        AudioFile audio = AudioFile::Open(path);
        const AudioFileInfo info = AudioFileInfo::Decode(audio);
        if (info.frames == 0)
            throw Refusal(QStringLiteral("The sound file '%1' holds no audio (zero frames)").arg(path));
        info.LengthMs(); // a length beyond 32 bits of milliseconds throws here, before any copy
        title = TitleOf(audio, path);
        return info;
    } catch (const Refusal&) {
        throw;
    } catch (const KernelError& e) {
        if (!file.isFile())
            throw; // gone meanwhile: not the file's fault
        throw Refusal(e.Description());
    }
}

QString SoundImport::FreeID() const
{
    QSqlQuery carts = m_db->Query(QStringLiteral("SELECT ID FROM Cart WHERE ID LIKE '%1*'").arg(m_family));
    QSet<int> used;
    while (carts.next()) {
        bool number = false;
        const int slot = carts.value(0).toString().mid(3).toInt(&number);
        if (number)
            used.insert(slot);
    }
    for (int slot = 0; slot < FamilySlots; ++slot) {
        if (!used.contains(slot))
            return m_family + QString::number(slot).rightJustified(4, QLatin1Char('0'));
    }
    throw KernelError(QStringLiteral("The family %1 has no free number left").arg(m_family));
}

// The cart's ID and the file's own extension; a file of that name left in the folder is kept,
// and the copy takes a numbered name beside it.
QString SoundImport::TargetFor(const QString& id, const QString& source) const
{
    const QString suffix = QFileInfo(source).suffix().toLower();
    const QString extension = suffix.isEmpty() ? QString() : QStringLiteral(".") + suffix;
    QString name = id + extension;
    for (int n = 1; QFileInfo::exists(m_soundFolder + name) || QFileInfo::exists(EnergyFile::PathFor(m_soundFolder + name)); ++n)
        name = QStringLiteral("%1-%2%3").arg(id).arg(n).arg(extension);
    return m_soundFolder + name;
}

void SoundImport::WriteRows(const QString& id, const QString& title, const QString& target, const AudioFileInfo& info)
{
    const qint32 ms = info.LengthMs();
    m_db->Transaction([&] {
        const std::unique_ptr<Recordset> cart = m_db->OpenRecordset(QStringLiteral("SELECT * FROM Cart WHERE ID = ") + SqlQuote(id));
        cart->AddNew();
        cart->SetValue(QStringLiteral("ID"), id);
        cart->SetValue(QStringLiteral("Descripcio"), title);
        cart->SetValue(QStringLiteral("Type"), QStringLiteral("S"));
        cart->SetValue(QStringLiteral("Time"), ms);
        cart->Update();
        Sound sound(m_db, id, m_soundFolder);
        sound.SetFileName(target);
        sound.SetFileStop(ms);
        sound.SetFileStopMark(ms);
        sound.Save();
    });
}
