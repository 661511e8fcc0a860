#include "KernelTest.h"
#include "kernel/ConfigStore.h"
#include "kernel/EnergyFile.h"
#include "kernel/EnergyReader.h"
#include "kernel/EnergyScale.h"
#include "kernel/Sound.h"
#include "kernel/Station.h"
#include "kernel/StationDatabases.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iFiles.h"
#include "kernelapi/iSoundFile.h"
#include "tools/ToneFile.h"
#include <QDirIterator>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {
class SoundTest : public KernelTest
{
protected:
    std::unique_ptr<Sound> Open(const QString& cartID) const
    {
        return std::make_unique<Sound>(db, cartID, station.SoundDir());
    }

    QString WriteTone(const QString& name, const ToneFile& tone) const
    {
        tone.Write(scratch.filePath(name));
        return scratch.filePath(name);
    }

    std::shared_ptr<Database> db = StationDatabases::Open(Station(station.Folder())).Kernel;
    QTemporaryDir scratch;
};
}

TEST_F(SoundTest, MarksAndCustomerRoundTripThroughTheSoundRow)
{
    const std::unique_ptr<Sound> sound = Open("PUB0001");
    const int ms = Read("Sound.MDB", "SELECT Stop FROM Sound WHERE ID = 'PUB0001'").toInt();
    EXPECT_EQ(sound->ID(), "PUB0001");
    EXPECT_EQ(sound->FileName(), station.SoundDir() + "PUB0001.wav");
    EXPECT_EQ(sound->FileStart(), 0);
    EXPECT_EQ(sound->FileStop(), ms);
    EXPECT_EQ(sound->Customer(), "CLI001");

    QSignalSpy changed(sound.get(), &iSound::SoundChanged);
    sound->SetFileStart(10);
    sound->SetFileStop(ms - 20);
    sound->SetFileStartMark(30);
    sound->SetFileStopMark(ms - 40);
    sound->SetCustomer("  CLI002 ");
    EXPECT_EQ(changed.count(), 0) << "setters only change the object";
    sound->Save();
    EXPECT_EQ(changed.count(), 1);

    const std::unique_ptr<Sound> again = Open("PUB0001");
    EXPECT_EQ(again->FileStart(), 10);
    EXPECT_EQ(again->FileStop(), ms - 20);
    EXPECT_EQ(again->FileStartMark(), 30);
    EXPECT_EQ(again->FileStopMark(), ms - 40);
    EXPECT_EQ(again->Customer(), "CLI002") << "the write rule trims";
}

TEST_F(SoundTest, FileNamesAreKeptRelativeToTheSoundFolder)
{
    const std::unique_ptr<Sound> sound = Open("CON0001"); // a control cart: no Sound row
    EXPECT_TRUE(sound->FileName().isEmpty());
    EXPECT_EQ(sound->SoundFile(), nullptr);

    sound->SetFileName(station.SoundDir() + "JIN0001.wav");
    sound->Save();
    EXPECT_EQ(Read("Sound.MDB", "SELECT Filename FROM Sound WHERE ID = 'CON0001'").toString(), "JIN0001.wav");
    ASSERT_NE(sound->SoundFile(), nullptr);
    EXPECT_EQ(sound->SoundFile()->FileName(), station.SoundDir() + "JIN0001.wav");

    const QString outside = WriteTone("outside.wav", {});
    sound->SetFileName(outside);
    sound->Save();
    EXPECT_EQ(Read("Sound.MDB", "SELECT Filename FROM Sound WHERE ID = 'CON0001'").toString(), outside);
    EXPECT_EQ(Open("CON0001")->FileName(), outside);

    sound->SetFileName(QString());
    sound->Save();
    EXPECT_TRUE(Read("Sound.MDB", "SELECT Filename FROM Sound WHERE ID = 'CON0001'").isNull());
}

TEST_F(SoundTest, SoundFolderComesFromTheSharedKeyOrTheStation)
{
    const std::shared_ptr<ConfigStore> shared = ConfigStore::Shared(db);
    EXPECT_EQ(Sound::Folder(*shared, station.Folder()), station.SoundDir());
    shared->SetValue("SoundPath(1)", "elsewhere/audio");
    EXPECT_EQ(Sound::Folder(*shared, station.Folder()), station.Dir() + "elsewhere/audio/");
    shared->SetValue("SoundPath(1)", "/srv/sound");
    EXPECT_EQ(Sound::Folder(*shared, station.Folder()), "/srv/sound/");
    shared->SetValue("SoundPath(1)", "");
    EXPECT_EQ(Sound::Folder(*shared, station.Folder()), station.SoundDir());
}

TEST_F(SoundTest, BackupAndRestoreOfTheMarks)
{
    Run("Kernel.MDB", "DROP TABLE SoundBackup"); // a station made before the table existed
    const std::unique_ptr<Sound> sound = Open("MUS0001");
    EXPECT_FALSE(sound->HasBackup());
    EXPECT_THROW(sound->Restore(), KernelError);
    const qint32 stop = sound->FileStop();

    sound->SetFileStart(100);
    sound->Backup();
    EXPECT_TRUE(sound->HasBackup());
    EXPECT_TRUE(Open("MUS0001")->HasBackup()) << "the backup lives in the database";
    EXPECT_FALSE(Open("MUS0002")->HasBackup());

    sound->SetFileStart(500);
    sound->SetFileStop(stop - 500);
    sound->Save();
    QSignalSpy changed(sound.get(), &iSound::SoundChanged);
    sound->Restore();
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(sound->FileStart(), 100);
    EXPECT_EQ(sound->FileStop(), stop);
    EXPECT_EQ(Open("MUS0001")->FileStart(), 100) << "restored marks are saved";
    EXPECT_TRUE(sound->HasBackup()) << "the backup stays for a later restore";

    sound->Remove(false);
    EXPECT_FALSE(sound->HasBackup());
}

TEST_F(SoundTest, EveryDemoSoundHasItsEnergyFileAndItsLength)
{
    int sounds = 0;
    const std::unique_ptr<Database> catalogue = OpenData("Sound.MDB");
    QSqlQuery rows = catalogue->Query("SELECT ID, Stop FROM Sound");
    while (rows.next()) {
        const QString id = rows.value(0).toString();
        const std::unique_ptr<Sound> sound = Open(id);
        const std::shared_ptr<iSoundFile> file = sound->SoundFile();
        ASSERT_NE(file, nullptr) << id.toStdString();
        EXPECT_EQ(file->Length(), rows.value(1).toInt()) << id.toStdString();
        EXPECT_FALSE(file->IsCompressedFrames());
        const iSoundFile::EnergyFile energy = file->GetEnergyFile();
        EXPECT_TRUE(energy.available) << energy.fileName.toStdString();
        EnergyReader reader;
        reader.SetFileName(energy.fileName);
        EXPECT_EQ(reader.howManySamples(), (file->Length() + 9) / 10) << id.toStdString();
        ++sounds;
    }
    EXPECT_EQ(sounds, 19);
    EXPECT_THROW(Open("JIN0001")->SoundFile()->Normalize({}, true), KernelError);
}

TEST_F(SoundTest, FileLengthsOfEveryFormat)
{
    using Format = ToneFile::Format;
    const std::shared_ptr<iFiles> files = kernel->Files();
    for (const auto& [format, name] : {std::pair{Format::Wav16, "a.wav"}, {Format::Wav24, "b.wav"}, {Format::Aiff, "c.aiff"},
                                       {Format::Flac, "d.flac"}, {Format::Ogg, "e.ogg"}, {Format::Mp3, "f.mp3"}}) {
        const QString path = WriteTone(name, {format, 48000, 2, 1230, 440, 0.5});
        EXPECT_EQ(files->FileLengthMs(path), 1230) << name;
        EXPECT_EQ(files->FilePlayLengthMs(path), 1230) << name;
    }
    // Layer II pads to whole frames of 1152 samples (24 ms at 48 kHz) and adds its delay.
    const QString mp2 = WriteTone("g.mp2", {Format::Mp2, 48000, 2, 1230, 440, 0.5});
    EXPECT_NEAR(files->FilePlayLengthMs(mp2), 1230, 60);

    EXPECT_THROW(files->FileLengthMs(scratch.filePath("missing.wav")), KernelError);
    QFile text(scratch.filePath("text.wav"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("this is not audio");
    text.close();
    try {
        files->FileLengthMs(text.fileName());
        ADD_FAILURE() << "text was read as audio";
    } catch (const KernelError& e) {
        EXPECT_TRUE(e.Description().startsWith("Cannot read the sound file '" + text.fileName() + "'")) << e.what();
    }
}

TEST_F(SoundTest, FileEnergyOfAKnownSine)
{
    const std::shared_ptr<iFiles> files = kernel->Files();
    const QString stereo = WriteTone("half.wav", {ToneFile::Format::Wav16, 44100, 2, 1000, 1000, 0.5});
    const iFiles::Energy half = files->FileEnergy(stereo, 200, 100);
    EXPECT_NEAR(half.left, EnergyScale::Value(0.5), 0.001);
    EXPECT_NEAR(half.right, EnergyScale::Value(0.5), 0.001);

    const QString mono = WriteTone("quarter.flac", {ToneFile::Format::Flac, 48000, 1, 1000, 1000, 0.25});
    const iFiles::Energy quarter = files->FileEnergy(mono, 0, 1000);
    EXPECT_NEAR(quarter.left, EnergyScale::Value(0.25), 0.001);
    EXPECT_EQ(quarter.right, 0.0);

    const iFiles::Energy past = files->FileEnergy(stereo, 5000, 100);
    EXPECT_EQ(past.left, 0.0);
    EXPECT_EQ(files->FileEnergy(stereo, 0, 0).left, 0.0);
    EXPECT_THROW(files->FileEnergy(stereo, -1, 10), KernelError);
}

TEST_F(SoundTest, RecalculateMeasuresAgainAndRewritesTheEnergyFile)
{
    const std::unique_ptr<Sound> sound = Open("NEW0001");
    const QString energy = sound->SoundFile()->GetEnergyFile().fileName;
    const qint32 length = sound->SoundFile()->Length();
    ASSERT_TRUE(QFile::remove(energy));
    EXPECT_FALSE(sound->SoundFile()->GetEnergyFile().available);

    sound->SetFileStop(length + 5000);
    sound->SetFileStart(length + 100);
    sound->SetFileStopMark(length * 2);
    QSignalSpy changed(sound.get(), &iSound::SoundChanged);
    EXPECT_EQ(sound->Recalculate(false), length);
    EXPECT_TRUE(sound->SoundFile()->GetEnergyFile().available) << "a missing energy file is written";
    EXPECT_EQ(sound->FileStop(), length);
    EXPECT_EQ(sound->FileStart(), length);
    EXPECT_EQ(sound->FileStopMark(), length);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(Open("NEW0001")->FileStop(), length);

    ASSERT_TRUE(QFile::remove(energy));
    EXPECT_EQ(sound->Recalculate(true), length);
    EXPECT_TRUE(QFileInfo(energy).isFile());
}

TEST_F(SoundTest, MissingTruncatedAndEmptyFiles)
{
    const std::unique_ptr<Sound> sound = Open("ESP0001");
    const QString audio = sound->FileName();
    const qint32 length = sound->SoundFile()->Length();

    // A file cut in half is measured at the length that is there.
    QFile(audio).resize(44 + (QFileInfo(audio).size() - 44) / 2 / 4 * 4);
    sound->Update();
    EXPECT_NEAR(sound->Recalculate(true), length / 2, 1);
    EXPECT_NEAR(sound->FileStop(), length / 2, 1);

    // A file with no frames measures 0.
    WriteTone("empty.wav", {ToneFile::Format::Wav16, 44100, 2, 0});
    ASSERT_TRUE(QFile::remove(audio));
    ASSERT_TRUE(QFile::copy(scratch.filePath("empty.wav"), audio));
    sound->Update();
    EXPECT_EQ(sound->Recalculate(true), 0);
    EXPECT_EQ(sound->FileStop(), 0);

    // A missing file is named in the error.
    ASSERT_TRUE(QFile::remove(audio));
    sound->Update();
    try {
        sound->Recalculate(true);
        ADD_FAILURE() << "a missing file was measured";
    } catch (const KernelError& e) {
        EXPECT_TRUE(e.Description().contains(audio)) << e.what();
    }
    EXPECT_THROW(sound->SoundFile()->Length(), KernelError);
}

TEST_F(SoundTest, RemoveTakesTheRowAndOptionallyTheFiles)
{
    const std::unique_ptr<Sound> kept = Open("TMP0001");
    const QString keptFile = kept->FileName();
    kept->Remove(false);
    EXPECT_TRUE(Read("Sound.MDB", "SELECT ID FROM Sound WHERE ID = 'TMP0001'").isNull());
    EXPECT_TRUE(QFileInfo(keptFile).isFile());
    EXPECT_EQ(kept->SoundFile(), nullptr);

    const std::unique_ptr<Sound> erased = Open("TMP0002");
    const QString erasedFile = erased->FileName();
    erased->Remove(true);
    EXPECT_FALSE(QFileInfo::exists(erasedFile));
    EXPECT_FALSE(QFileInfo::exists(EnergyFile::PathFor(erasedFile)));
    EXPECT_EQ(Read("Sound.MDB", "SELECT Type FROM Cart WHERE ID = 'TMP0002'").toString(), "S") << "the cart stays";
}
