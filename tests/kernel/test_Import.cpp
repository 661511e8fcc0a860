#include "KernelTest.h"
#include "kernel/EnergyFile.h"
#include "kernel/EnergyReader.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iFiles.h"
#include "tools/StationCommand.h"
#include "tools/StationImport.h"
#include "tools/ToneFile.h"
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

namespace {
using Format = ToneFile::Format;

class ImportTest : public KernelTest
{
protected:
    QString WriteTone(const QString& name, Format format, qint64 ms) const
    {
        ToneFile tone;
        tone.format = format;
        tone.rate = 48000;
        tone.ms = ms;
        tone.Write(source.filePath(name));
        return source.filePath(name);
    }

    QString WriteBytes(const QString& name, const QByteArray& bytes) const
    {
        QFile file(source.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    // Runs korvane-station with the arguments; the exit code, and what it wrote.
    int RunTool(const QStringList& arguments)
    {
        out.clear();
        err.clear();
        QTextStream outStream(&out), errStream(&err);
        return StationCommand(outStream, errStream).Run(arguments);
    }

    QString Text(const QString& sql) const { return Read("Sound.MDB", sql).toString(); }

    QTemporaryDir source;
    QString out, err;
};
}

TEST_F(ImportTest, GoodFilesComeInAndBadOnesAreReportedAndSkipped)
{
    const QStringList files{WriteTone("Morning Jingle.wav", Format::Wav16, 1500),
                            WriteBytes("broken.wav", QByteArray("RIFF\x24\0\0\0WAVEfmt nonsense", 24)),
                            WriteTone("Bed.flac", Format::Flac, 2000),
                            WriteTone("empty.wav", Format::Wav16, 0),
                            WriteTone("Sweeper.ogg", Format::Ogg, 700),
                            source.filePath("missing.aiff"),
                            WriteTone("Promo.mp3", Format::Mp3, 1200),
                            WriteTone("News.MP2", Format::Mp2, 960),
                            WriteTone("Drone.aiff", Format::Aiff, 330)};
    EXPECT_EQ(RunTool(QStringList{"import", station.Dir()} + files), 1);

    EXPECT_TRUE(out.contains("Imported 6 of 9 files into the family IMP: IMP0000 IMP0001 IMP0002 IMP0003 IMP0004 IMP0005"))
        << out.toStdString();
    const QStringList errors = err.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(errors.size(), 3) << err.toStdString();
    EXPECT_TRUE(errors[0].contains("broken.wav"));
    EXPECT_TRUE(errors[1].contains("empty.wav") && errors[1].contains("zero frames"));
    EXPECT_TRUE(errors[2].contains("missing.aiff") && errors[2].contains("does not exist"));

    const QStringList expected[] = {{"IMP0000", "Morning Jingle", "IMP0000.wav", "1500"},
                                    {"IMP0001", "Bed", "IMP0001.flac", "2000"},
                                    {"IMP0002", "Sweeper", "IMP0002.ogg", "700"},
                                    {"IMP0003", "Promo", "IMP0003.mp3", "1200"},
                                    {"IMP0004", "News", "IMP0004.mp2", ""},
                                    {"IMP0005", "Drone", "IMP0005.aiff", "330"}};
    for (const QStringList& cart : expected) {
        const QString id = cart[0];
        SCOPED_TRACE(id.toStdString());
        EXPECT_EQ(Text("SELECT Descripcio FROM Cart WHERE ID = '" + id + "'"), cart[1]);
        EXPECT_EQ(Text("SELECT Type FROM Cart WHERE ID = '" + id + "'"), "S");
        EXPECT_EQ(Text("SELECT Filename FROM Sound WHERE ID = '" + id + "'"), cart[2]);
        const QString time = Text("SELECT Time FROM Cart WHERE ID = '" + id + "'");
        EXPECT_EQ(Text("SELECT Stop FROM Sound WHERE ID = '" + id + "'"), time);
        if (!cart[3].isEmpty()) {
            EXPECT_EQ(time, cart[3]);
        }
        EnergyReader reader;
        reader.SetFileName(EnergyFile::PathFor(station.SoundDir() + cart[2]));
        EXPECT_EQ(reader.howManySamples(), (time.toInt() + 9) / 10);
    }
    // Layer II adds its padding and delay to the length.
    EXPECT_NEAR(Text("SELECT Time FROM Cart WHERE ID = 'IMP0004'").toInt(), 960, 60);
    EXPECT_EQ(Read("User.MDB", "SELECT Descripcio FROM Familia WHERE ID = 'IMP'").toString(), "Imported sounds");
    EXPECT_FALSE(QFileInfo::exists(station.SoundDir() + "IMP0006.wav")) << "nothing is left of a skipped file";
}

TEST_F(ImportTest, NewCartsTakeTheFreeNumbersOfAnExistingFamily)
{
    // JIN holds 0001 to 0004: the first import fills 0000, the next goes after the last.
    // A file left in the sound folder under a new cart's name is not overwritten.
    const QString stray = station.SoundDir() + "JIN0000.wav";
    ASSERT_TRUE(QFile::copy(WriteTone("stray.wav", Format::Wav16, 100), stray));
    const QStringList files{WriteTone("one.wav", Format::Wav16, 200), WriteTone("two.wav", Format::Wav16, 300)};
    StationImport import(station.Dir(), "jin");
    const StationImport::Outcome outcome = import.Import(files);
    EXPECT_EQ(outcome.ids, (QStringList{"JIN0000", "JIN0005"}));
    EXPECT_TRUE(outcome.failures.isEmpty());
    EXPECT_EQ(Text("SELECT Filename FROM Sound WHERE ID = 'JIN0000'"), "JIN0000-1.wav");
    EXPECT_EQ(kernel->Files()->FileLengthMs(stray), 100);
    EXPECT_EQ(Read("User.MDB", "SELECT Descripcio FROM Familia WHERE ID = 'JIN'").toString(), "Jingles and station IDs");
}

TEST_F(ImportTest, RefusalsOfTheCommandLine)
{
    const QString wav = WriteTone("one.wav", Format::Wav16, 200);
    EXPECT_EQ(RunTool({"import", station.Dir(), wav, "--family", "JINGLE"}), 1);
    EXPECT_TRUE(err.contains("A family ID is three letters, not 'JINGLE'")) << err.toStdString();
    EXPECT_EQ(RunTool({"import", station.Dir(), wav, "--family", "J1N"}), 1);
    EXPECT_EQ(RunTool({"import", station.Dir()}), 1);
    EXPECT_TRUE(err.contains("No files given")) << err.toStdString();
    EXPECT_EQ(RunTool({"import", source.path(), wav}), 1);
    EXPECT_TRUE(err.contains("is not a station")) << err.toStdString();
    EXPECT_TRUE(Read("User.MDB", "SELECT ID FROM Familia WHERE ID = 'IMP'").isNull()) << "nothing was changed";

    EXPECT_EQ(RunTool({"import", station.Dir(), wav, "--family", "new"}), 0);
    EXPECT_TRUE(out.contains("Imported 1 of 1 files into the family NEW: NEW0000")) << out.toStdString();
}
