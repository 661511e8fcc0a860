#pragma once
#include <QFrame>
#include <QString>

class QLabel;
class QTimer;

// A strip of labels telling the state of one drive: type, file system, sizes and the share of
// free space. A drive is a letter; the station file's [Drives] section maps each letter to a
// mount point ("C=/"), and C is the root when the section does not name it. Watching starts
// at Init and refreshes every second.
class IFFileSystemMonitor : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString Drive READ Drive WRITE SetDrive)
public:
    explicit IFFileSystemMonitor(QWidget* parent = nullptr);

    QString Drive() const { return m_drive; }
    // Takes the letter in upper case and refreshes at once when watching.
    void SetDrive(const QString& letter);
    Q_INVOKABLE void Init();
    // Share of free space of the drive, 0 to 100; 0 when it is not ready.
    double Percent() const { return m_percent; }
    // The mount point of a drive letter, or empty when the station does not map it.
    static QString MountPoint(const QString& letter);

    void RefreshInfo();
    void Timer1_Timer() { RefreshInfo(); }
    QTimer* Timer1;

    QLabel *LblDriveLetter, *LblDriveType, *LblFileSystem, *LblPath, *LblRootFolder, *LblShareName,
        *LblVolumeName, *LblSerialNumber, *LblIsReady, *LblTotalSize, *LblFreeSpace, *LblAvailableSpace,
        *LblPercent;

private:
    QLabel* AddLabel(const char* name);
    void ShowNotReady(const QString& path);

    QString m_drive = QStringLiteral("C");
    double m_percent = 0;
};
