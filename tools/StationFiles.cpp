#include "tools/StationFiles.h"
#include "kernel/StationFolder.h"
#include "kernelapi/KernelError.h"
#include <QSaveFile>

const QString StationFiles::StationID = QStringLiteral("KORVANE-DEMO");
const QString StationFiles::StationName = QStringLiteral("Korvane Demo Station");

void StationFiles::Write(const StationFolder& folder)
{
    WriteText(folder.StationIni(), StationIniText());
    WriteText(folder.KernelIni(), KernelIniText());
}

QString StationFiles::StationIniText()
{
    return QStringLiteral(
               "; Korvane station: identity, working resolution and the menu.\n"
               "[Station]\n"
               "ID=%1\n"
               "Name=%2\n"
               "\n"
               "[Resolution]\n"
               "X=1280\n"
               "Y=800\n"
               "\n"
               "; Entries are numbered row by row; Action is OpenForm, Logout, Exit or Dummy.\n"
               "[Menu]\n"
               "Rows=5\n"
               "Columns=2\n"
               "\n"
               "[Menu_1]\n"
               "Action=OpenForm\n"
               "Form=PasswordForm\n"
               "Caption=Login\n"
               "\n"
               "[Menu_2]\n"
               "Action=OpenForm\n"
               "Form=Directe\n"
               "Caption=Live\n"
               "\n"
               "[Menu_3]\n"
               "Action=OpenForm\n"
               "Form=FrmLevels\n"
               "Caption=Levels\n"
               "\n"
               "[Menu_4]\n"
               "Action=OpenForm\n"
               "Form=ConfigForm\n"
               "Caption=Configuration\n"
               "\n"
               "[Menu_5]\n"
               "Action=OpenForm\n"
               "Form=FrmChangePassword\n"
               "Caption=Password\n"
               "\n"
               "[Menu_6]\n"
               "Action=OpenForm\n"
               "Form=FrmLanguage\n"
               "Caption=Language\n"
               "\n"
               "[Menu_7]\n"
               "Action=OpenForm\n"
               "Form=FrmBrowser\n"
               "Caption=Browser\n"
               "\n"
               "[Menu_8]\n"
               "Action=Logout\n"
               "Caption=Logout\n"
               "\n"
               "[Menu_9]\n"
               "Action=Exit\n"
               "Caption=Exit\n")
        .arg(StationID, StationName);
}

QString StationFiles::KernelIniText()
{
    return QStringLiteral(
        "; Korvane kernel settings.\n"
        "[Data]\n"
        "; Folder of Sound.MDB, User.MDB and Kernel.MDB, relative to the station or absolute,\n"
        "; or a postgresql:// URI. Empty means the station's data/ folder.\n"
        "Path=\n"
        "\n"
        "[Audio]\n"
        "SampleRate=48000\n"
        "PeriodFrames=256\n"
        "; A playing cart with less than this left is shown as expiring (0: never).\n"
        "ExpiringSeconds=10\n"
        "\n"
        "; One section per channel, in order. Device: a PortAudio device name, \"default\", or\n"
        "; \"null\" for the Null device, which keeps real time with no hardware. A device that is\n"
        "; absent or goes away is replaced by the Null device, with an ERROR line in the log.\n"
        "; With no channel section at all, A, B and Rec run on the Null device.\n"
        "[Channel_A]\n"
        "Device=null\n"
        "Streams=3\n"
        "Direction=play\n"
        "\n"
        "[Channel_B]\n"
        "Device=null\n"
        "Streams=3\n"
        "Direction=play\n"
        "\n"
        "[Channel_Rec]\n"
        "Device=null\n"
        "Streams=1\n"
        "Direction=record\n"
        "\n"
        "; How the recorder writes its takes: Format=wav (16-bit PCM) or mp2 (MPEG Layer II at\n"
        "; BitRate kbit/s), Channels=1 or 2, at the SampleRate above.\n"
        "[Record]\n"
        "Format=wav\n"
        "Channels=2\n"
        "BitRate=256\n"
        "\n"
        "; What a recording channel on the Null device hears: Source=silence, tone (a sine of\n"
        "; Frequency Hz at Level dBFS) or file (File, relative to the station, played once).\n"
        "[NullInput]\n"
        "Source=tone\n"
        "Frequency=1000\n"
        "Level=-18\n");
}

void StationFiles::WriteText(const QString& path, const QString& text)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text) || file.write(text.toUtf8()) < 0 || !file.commit())
        throw KernelError(QStringLiteral("Cannot write '%1': %2").arg(path, file.errorString()));
}
