#include "tools/StationImport.h"
#include "foundation/Strings.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "kernel/AudioFile.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/ConfigStore.h"
#include "kernel/EnergyFile.h"
#include "kernel/Sound.h"
#include "kernel/Station.h"
#include "kernel/StationDatabases.h"
#include "kernelapi/KernelError.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QSqlQuery>

const QString StationImport::DefaultFamily = QStringLiteral("IMP");

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

StationFolder CheckedStation(const QString& dir)
{
    const StationFolder folder(dir);
    if (!folder.IsStation())
        throw KernelError(QStringLiteral("'%1' is not a station: station.ini is missing").arg(QDir::toNativeSeparators(folder.Root())));
    return folder;
}
}

StationImport::StationImport(const QString& stationDir, const QString& family) : m_family(CheckedFamily(family))
{
    const StationFolder folder = CheckedStation(stationDir);
    m_db = StationDatabases::Open(Station(folder)).Kernel;
    m_soundFolder = Sound::Folder(*ConfigStore::Shared(m_db), folder);
}

StationImport::~StationImport() = default;

StationImport::Outcome StationImport::Import(const QStringList& files)
{
    EnsureFamily();
    Outcome outcome;
    for (const QString& file : files) {
        try {
            outcome.ids << ImportFile(file);
        } catch (const KernelError& e) {
            outcome.failures << e.Description();
        }
    }
    return outcome;
}

QString StationImport::ImportFile(const QString& path)
{
    AudioFile audio = AudioFile::Open(path);
    const AudioFileInfo info = AudioFileInfo::Decode(audio);
    if (info.frames == 0)
        throw KernelError(QStringLiteral("The sound file '%1' holds no audio (zero frames)").arg(path));
    const QString id = FreeID();
    const QString target = TargetFor(id, path);
    if (!QDir().mkpath(m_soundFolder) || !QFile::copy(path, target))
        throw KernelError(QStringLiteral("Cannot copy '%1' to '%2'").arg(path, target));
    try {
        EnergyFile::Write(EnergyFile::PathFor(target), info);
        WriteRows(id, path, target, info);
    } catch (...) {
        QFile::remove(target);
        QFile::remove(EnergyFile::PathFor(target));
        throw;
    }
    return id;
}

void StationImport::EnsureFamily()
{
    QSqlQuery family = m_db->Query(QStringLiteral("SELECT COUNT(*) FROM Familia WHERE ID = ?"), {m_family});
    if (family.next() && family.value(0).toInt() > 0)
        return;
    m_db->Query(QStringLiteral("INSERT INTO Familia (ID, Descripcio, Tothom) VALUES (?, ?, ?)"),
                {m_family, QStringLiteral("Imported sounds"), true});
}

QString StationImport::FreeID() const
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
QString StationImport::TargetFor(const QString& id, const QString& source) const
{
    const QString suffix = QFileInfo(source).suffix().toLower();
    const QString extension = suffix.isEmpty() ? QString() : QStringLiteral(".") + suffix;
    QString name = id + extension;
    for (int n = 1; QFileInfo::exists(m_soundFolder + name) || QFileInfo::exists(EnergyFile::PathFor(m_soundFolder + name)); ++n)
        name = QStringLiteral("%1-%2%3").arg(id).arg(n).arg(extension);
    return m_soundFolder + name;
}

void StationImport::WriteRows(const QString& id, const QString& source, const QString& target, const AudioFileInfo& info)
{
    const qint32 ms = info.LengthMs();
    m_db->Transaction([&] {
        const std::unique_ptr<Recordset> cart = m_db->OpenRecordset(QStringLiteral("SELECT * FROM Cart WHERE ID = ") + SqlQuote(id));
        cart->AddNew();
        cart->SetValue(QStringLiteral("ID"), id);
        cart->SetValue(QStringLiteral("Descripcio"), QFileInfo(source).completeBaseName());
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
