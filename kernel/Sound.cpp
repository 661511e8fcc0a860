#include "kernel/Sound.h"
#include "foundation/Strings.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "kernel/ConfigStore.h"
#include "kernel/EnergyFile.h"
#include "kernel/SoundFile.h"
#include "kernel/StationFolder.h"
#include "kernelapi/KernelError.h"
#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <algorithm>

namespace {
QString WithSeparator(const QString& path)
{
    return path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
}
}

Sound::Sound(std::shared_ptr<Database> db, const QString& cartID, const QString& soundFolder, QObject* parent)
    : iSound(parent), m_db(std::move(db)), m_id(cartID), m_folder(WithSeparator(QDir::cleanPath(soundFolder)))
{
    Load();
}

Sound::~Sound() = default;

QString Sound::Folder(const ConfigStore& shared, const StationFolder& station)
{
    const QString setting = shared.Value(QStringLiteral("SoundPath(1)")).toString().trimmed();
    if (setting.isEmpty())
        return station.SoundDir();
    return WithSeparator(QDir::cleanPath(QDir(station.Root()).absoluteFilePath(setting)));
}

void Sound::Load()
{
    QSqlQuery row = m_db->Query(QStringLiteral("SELECT Filename, Start, Stop, StartMark, StopMark, ClientID FROM Sound WHERE ID = ?"), {m_id});
    if (!row.next())
        return;
    m_storedName = row.value(0).toString();
    m_marks = {row.value(1).toInt(), row.value(2).toInt(), row.value(3).toInt(), row.value(4).toInt()};
    m_customer = row.value(5).toString();
}

QString Sound::FileName() const
{
    if (m_storedName.isEmpty() || QDir::isAbsolutePath(m_storedName))
        return m_storedName;
    return m_folder + m_storedName;
}

void Sound::SetFileName(const QString& fileName)
{
    const QString clean = fileName.trimmed().isEmpty() ? QString() : QDir::cleanPath(fileName.trimmed());
    m_storedName = clean.startsWith(m_folder) ? clean.mid(m_folder.size()) : clean;
}

std::shared_ptr<iSoundFile> Sound::SoundFile() const
{
    return File();
}

std::shared_ptr<::SoundFile> Sound::File() const
{
    const QString name = FileName();
    if (name.isEmpty())
        return nullptr;
    if (!m_file || m_file->FileName() != name)
        m_file = std::make_shared<::SoundFile>(name);
    return m_file;
}

void Sound::EnsureBackupTable() const
{
    if (!m_db->HasTable(QStringLiteral("SoundBackup")))
        CatalogueSchema::CreateKernelSchema(*m_db);
}

bool Sound::HasBackup() const
{
    EnsureBackupTable();
    QSqlQuery backup = m_db->Query(QStringLiteral("SELECT COUNT(*) FROM SoundBackup WHERE ID = ?"), {m_id});
    return backup.next() && backup.value(0).toInt() > 0;
}

void Sound::Backup()
{
    EnsureBackupTable();
    m_db->Transaction([&] {
        m_db->Query(QStringLiteral("DELETE FROM SoundBackup WHERE ID = ?"), {m_id});
        m_db->Query(QStringLiteral("INSERT INTO SoundBackup (ID, Start, Stop, StartMark, StopMark) VALUES (?, ?, ?, ?, ?)"),
                    {m_id, m_marks.start, m_marks.stop, m_marks.startMark, m_marks.stopMark});
    });
}

void Sound::Restore()
{
    EnsureBackupTable();
    QSqlQuery backup = m_db->Query(QStringLiteral("SELECT Start, Stop, StartMark, StopMark FROM SoundBackup WHERE ID = ?"), {m_id});
    if (!backup.next())
        throw KernelError(QStringLiteral("The sound of %1 has no backup of its marks to restore").arg(m_id));
    m_marks = {backup.value(0).toInt(), backup.value(1).toInt(), backup.value(2).toInt(), backup.value(3).toInt()};
    Save();
}

void Sound::Save()
{
    const std::unique_ptr<Recordset> row = m_db->OpenRecordset(QStringLiteral("SELECT * FROM Sound WHERE ID = ") + SqlQuote(m_id));
    if (row->IsEOF()) {
        row->AddNew();
        row->SetValue(QStringLiteral("ID"), m_id);
    } else {
        row->Edit();
    }
    row->SetValue(QStringLiteral("Filename"), m_storedName.isEmpty() ? QVariant() : QVariant(m_storedName));
    row->SetValue(QStringLiteral("Start"), m_marks.start);
    row->SetValue(QStringLiteral("Stop"), m_marks.stop);
    row->SetValue(QStringLiteral("StartMark"), m_marks.startMark);
    row->SetValue(QStringLiteral("StopMark"), m_marks.stopMark);
    row->SetValue(QStringLiteral("ClientID"), m_customer);
    row->Update();
    Q_EMIT SoundChanged();
}

void Sound::Update()
{
    m_file.reset();
    Q_EMIT SoundChanged();
}

qint32 Sound::Recalculate(bool accurate)
{
    const std::shared_ptr<::SoundFile> file = File();
    if (!file)
        throw KernelError(QStringLiteral("The sound of %1 has no file to measure").arg(m_id));
    const qint32 length = file->Recalculate(accurate);
    TakeLength(length);
    return length;
}

void Sound::TakeLength(qint32 lengthMs)
{
    FitMarks(lengthMs);
    Save();
}

void Sound::FitMarks(qint32 lengthMs)
{
    if (m_marks.stop <= 0 || m_marks.stop > lengthMs)
        m_marks.stop = lengthMs;
    m_marks.start = std::clamp(m_marks.start, 0, m_marks.stop);
    m_marks.startMark = std::clamp(m_marks.startMark, 0, lengthMs);
    m_marks.stopMark = std::clamp(m_marks.stopMark, 0, lengthMs);
}

void Sound::DeleteFiles(const QString& file)
{
    if (file.isEmpty())
        return;
    QFile::remove(file);
    QFile::remove(EnergyFile::PathFor(file));
}

void Sound::Remove(bool deleteFile)
{
    const QString file = FileName();
    EnsureBackupTable();
    m_db->Transaction([&] {
        m_db->Query(QStringLiteral("DELETE FROM Sound WHERE ID = ?"), {m_id});
        m_db->Query(QStringLiteral("DELETE FROM SoundBackup WHERE ID = ?"), {m_id});
    });
    if (deleteFile)
        DeleteFiles(file);
    m_storedName.clear();
    m_marks = {};
    m_customer.clear();
    m_file.reset();
    Q_EMIT SoundChanged();
}
