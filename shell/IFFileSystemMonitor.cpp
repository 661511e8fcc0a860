#include "shell/IFFileSystemMonitor.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/ui/TranslateWidgets.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iStation.h"
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QStorageInfo>
#include <QTimer>

namespace {
const QString Object = QStringLiteral("IFFileSystemMonitor");

// The kind of drive a file system suggests, in the words a technician expects.
QString DriveType(const QByteArray& fileSystem)
{
    static const QList<QByteArray> network = {"nfs", "nfs4", "cifs", "smb3", "smbfs", "sshfs", "fuse.sshfs"};
    static const QList<QByteArray> optical = {"iso9660", "udf"};
    static const QList<QByteArray> memory = {"tmpfs", "ramfs"};
    if (network.contains(fileSystem))
        return QStringLiteral("Network");
    if (optical.contains(fileSystem))
        return QStringLiteral("CD-ROM");
    if (memory.contains(fileSystem))
        return QStringLiteral("RAM Disk");
    return QStringLiteral("Fixed");
}

// The file system's UUID stands for the volume serial number: the name under which the
// system lists the device in /dev/disk/by-uuid.
QString SerialNumber(const QByteArray& device)
{
    const QString target = QFileInfo(QString::fromLocal8Bit(device)).canonicalFilePath();
    if (target.isEmpty())
        return {};
    const QDir byUuid(QStringLiteral("/dev/disk/by-uuid"));
    for (const QFileInfo& entry : byUuid.entryInfoList(QDir::System | QDir::Files | QDir::NoDotAndDotDot))
        if (entry.canonicalFilePath() == target)
            return entry.fileName();
    return {};
}

QString Size(qint64 bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}
}

IFFileSystemMonitor::IFFileSystemMonitor(QWidget* parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("IFFileSystemMonitor"));
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    LblDriveLetter = AddLabel("LblDriveLetter");
    LblDriveType = AddLabel("LblDriveType");
    LblFileSystem = AddLabel("LblFileSystem");
    LblPath = AddLabel("LblPath");
    LblRootFolder = AddLabel("LblRootFolder");
    LblShareName = AddLabel("LblShareName");
    LblVolumeName = AddLabel("LblVolumeName");
    LblSerialNumber = AddLabel("LblSerialNumber");
    LblIsReady = AddLabel("LblIsReady");
    LblTotalSize = AddLabel("LblTotalSize");
    LblFreeSpace = AddLabel("LblFreeSpace");
    LblAvailableSpace = AddLabel("LblAvailableSpace");
    LblPercent = AddLabel("LblPercent");
    Timer1 = new QTimer(this);
    Timer1->setInterval(1000);
    connect(Timer1, &QTimer::timeout, this, &IFFileSystemMonitor::Timer1_Timer);
}

QLabel* IFFileSystemMonitor::AddLabel(const char* name)
{
    auto* label = new QLabel(this);
    label->setObjectName(QString::fromLatin1(name));
    KeepUntranslated(label);
    layout()->addWidget(label);
    return label;
}

void IFFileSystemMonitor::SetDrive(const QString& letter)
{
    m_drive = letter.toUpper();
    if (Timer1->isActive())
        RefreshInfo();
}

void IFFileSystemMonitor::Init()
{
    Timer1->start();
    RefreshInfo();
}

QString IFFileSystemMonitor::MountPoint(const QString& letter)
{
    const QString fallback = letter == QLatin1String("C") ? QStringLiteral("/") : QString();
    auto kernel = Globals::Kernel();
    if (!kernel)
        return fallback;
    return ReadIni(QStringLiteral("Drives"), letter, fallback, kernel->Station()->IniFile());
}

void IFFileSystemMonitor::RefreshInfo()
{
    Guarded(Object, QStringLiteral("RefreshInfo"), [this] {
        LblDriveLetter->setText(m_drive + QLatin1Char(':'));
        const QString path = MountPoint(m_drive);
        const QStorageInfo drive(path);
        if (path.isEmpty() || !drive.isValid() || !drive.isReady() || drive.bytesTotal() <= 0) {
            ShowNotReady(path);
            return;
        }
        LblDriveType->setText(DriveType(drive.fileSystemType()));
        LblFileSystem->setText(QString::fromUtf8(drive.fileSystemType()));
        LblPath->setText(QDir::toNativeSeparators(path));
        LblRootFolder->setText(drive.rootPath());
        LblShareName->setText(QString::fromUtf8(drive.device()));
        LblVolumeName->setText(drive.displayName());
        LblSerialNumber->setText(SerialNumber(drive.device()));
        LblIsReady->setText(QStringLiteral("True"));
        LblTotalSize->setText(Size(drive.bytesTotal()));
        LblFreeSpace->setText(Size(drive.bytesFree()));
        LblAvailableSpace->setText(Size(drive.bytesAvailable()));
        m_percent = 100.0 * static_cast<double>(drive.bytesFree()) / static_cast<double>(drive.bytesTotal());
        LblPercent->setText(QString::number(qRound(m_percent)) + QLatin1Char('%'));
    });
}

// A drive that is not mapped, not mounted or not readable: only its letter, path and state.
void IFFileSystemMonitor::ShowNotReady(const QString& path)
{
    for (QLabel* label : {LblDriveType, LblFileSystem, LblRootFolder, LblShareName, LblVolumeName, LblSerialNumber,
                          LblTotalSize, LblFreeSpace, LblAvailableSpace})
        label->clear();
    LblPath->setText(path);
    LblIsReady->setText(QStringLiteral("False"));
    m_percent = 0;
    LblPercent->setText(QStringLiteral("0%"));
}
