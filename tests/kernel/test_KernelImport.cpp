// The kernel's Import: the station's import folder is scanned on a worker thread, good files
// become carts and move to done/, bad ones move to refused/ with their reason, files still
// being written wait for the next scan. The scan's clock is the test's.
#include "KernelTest.h"
#include "kernel/EnergyFile.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "tools/ToneFile.h"
#include <QDir>
#include <QSignalSpy>
#include <sndfile.h>
#include <vector>

namespace {
using Format = ToneFile::Format;

class KernelImportTest : public KernelTest
{
protected:
    void SetUp() override
    {
        kernel->SetImportClock([this] { return now; });
        finished = std::make_unique<QSignalSpy>(kernel.get(), &CKernel::ImportFinished);
    }

    QString Folder() const { return kernel->ImportDirectory() + QLatin1Char('/'); }

    // A file written long enough before the scan's clock to count as complete.
    QString Settled(const QString& path) const
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(now.addSecs(-60), QFileDevice::FileModificationTime);
        return path;
    }

    QString Tone(const QString& name, Format format, qint64 ms) const
    {
        QDir().mkpath(Folder());
        ToneFile tone;
        tone.format = format;
        tone.rate = 48000;
        tone.ms = ms;
        tone.Write(Folder() + name);
        return Settled(Folder() + name);
    }

    // A second of silence in a WAV that carries title and artist tags (either may be empty).
    QString Tagged(const QString& name, const char* title, const char* artist) const
    {
        QDir().mkpath(Folder());
        SF_INFO info{};
        info.samplerate = 48000;
        info.channels = 1;
        info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
        SNDFILE* file = sf_open(QFile::encodeName(Folder() + name).constData(), SFM_WRITE, &info);
        EXPECT_NE(file, nullptr);
        if (*title)
            sf_set_string(file, SF_STR_TITLE, title);
        if (*artist)
            sf_set_string(file, SF_STR_ARTIST, artist);
        const std::vector<short> frames(48000, 0);
        sf_writef_short(file, frames.data(), sf_count_t(frames.size()));
        sf_close(file);
        return Settled(Folder() + name);
    }

    QString Bytes(const QString& name, const QByteArray& bytes) const
    {
        QDir().mkpath(Folder());
        QFile file(Folder() + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return Settled(file.fileName());
    }

    // Runs one import to its end; its figures, imported and refused.
    std::pair<int, int> RunImport()
    {
        const qsizetype before = finished->count();
        kernel->Import();
        EXPECT_TRUE(kernel->Importing());
        EXPECT_TRUE(finished->wait(60000));
        EXPECT_EQ(finished->count(), before + 1);
        const QList<QVariant> last = finished->last();
        return {last.at(0).toInt(), last.at(1).toInt()};
    }

    QStringList Names(const QString& folder) const
    {
        return QDir(Folder() + folder).entryList(QDir::Files, QDir::Name);
    }

    QString Reason(const QString& name) const
    {
        QFile file(Folder() + QStringLiteral("refused/") + name + QStringLiteral(".reason.txt"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QStringList CartsWithDescription(const QString& description) const
    {
        const std::unique_ptr<Database> db = OpenData("Sound.MDB"); // the query must not outlive it
        QSqlQuery query = db->Query(QStringLiteral("SELECT ID FROM Cart WHERE Descripcio = ?"), {description});
        QStringList ids;
        while (query.next())
            ids << query.value(0).toString();
        return ids;
    }

    QDateTime now = QDateTime::currentDateTime().addSecs(3600);
    std::unique_ptr<QSignalSpy> finished;
};
}

TEST_F(KernelImportTest, GoodFilesBecomeCartsAndBadOnesAreRefusedWithTheirReason)
{
    ASSERT_EQ(kernel->ImportFamily(), QStringLiteral("TMP")) << "the temporary family of the demo station";
    const auto family = kernel->Families()->Item(QStringLiteral("TMP"));
    const int before = family->Count();
    QSignalSpy contents(family.get(), &iFamily::ChangedContents);
    Tone("Morning Jingle.wav", Format::Wav16, 1500);
    Tone("Bed.flac", Format::Flac, 2000);
    Bytes("broken.wav", QByteArray("RIFF\x24\0\0\0WAVEfmt nonsense", 24));
    Bytes("empty.mp3", QByteArray());
    Bytes("notes.txt", QByteArray("Remember to call the traffic desk at nine.\n"));
    Tone("silence.wav", Format::Wav16, 0);

    EXPECT_EQ(RunImport(), std::make_pair(2, 4));

    EXPECT_EQ(Names(QString()), QStringList()) << "nothing left in the folder";
    EXPECT_EQ(Names(QStringLiteral("done")), QStringList({"Bed.flac", "Morning Jingle.wav"}));
    EXPECT_EQ(Names(QStringLiteral("refused")),
              QStringList({"broken.wav", "broken.wav.reason.txt", "empty.mp3", "empty.mp3.reason.txt", "notes.txt",
                           "notes.txt.reason.txt", "silence.wav", "silence.wav.reason.txt"}));
    EXPECT_TRUE(Reason(QStringLiteral("empty.mp3")).contains(QStringLiteral("empty (0 bytes)")));
    EXPECT_TRUE(Reason(QStringLiteral("silence.wav")).contains(QStringLiteral("zero frames")));
    EXPECT_TRUE(Reason(QStringLiteral("broken.wav")).contains(QStringLiteral("Cannot read the sound file")));
    EXPECT_TRUE(Reason(QStringLiteral("notes.txt")).contains(QStringLiteral("Cannot read the sound file")));

    const QStringList jingle = CartsWithDescription(QStringLiteral("Morning Jingle"));
    ASSERT_EQ(jingle.size(), 1);
    EXPECT_TRUE(jingle.first().startsWith(QStringLiteral("TMP")));
    const auto cart = kernel->Carts()->Cart(jingle.first());
    EXPECT_EQ(cart->Type(), CartType::Sound);
    EXPECT_EQ(cart->Time(), 1500);
    const QString sound = station.Folder().SoundDir() + Read("Sound.MDB", "SELECT Filename FROM Sound WHERE ID = ?", {jingle.first()}).toString();
    EXPECT_TRUE(QFileInfo::exists(sound)) << sound.toStdString();
    EXPECT_TRUE(QFileInfo::exists(EnergyFile::PathFor(sound)));
    EXPECT_EQ(CartsWithDescription(QStringLiteral("Bed")).size(), 1);

    EXPECT_GE(contents.count(), 1) << "the family's holders read it again";
    EXPECT_EQ(family->Count(), before + 2);
    EXPECT_EQ(LogLinesWith(QStringLiteral("refused: ")).size(), 4);
    const QStringList summary = LogLinesWith(QStringLiteral("2 imported into TMP"));
    ASSERT_EQ(summary.size(), 1);
    EXPECT_TRUE(summary.first().contains(QStringLiteral("4 refused"))) << summary.first().toStdString();
    EXPECT_FALSE(kernel->Importing());
}

TEST_F(KernelImportTest, FilesStillBeingWrittenWaitForALaterScan)
{
    Tone("Complete.wav", Format::Wav16, 300);
    Tone("Download.wav.part", Format::Wav16, 300);
    const QString copying = Tone("Copying.wav", Format::Wav16, 300);
    QFile file(copying);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(now.addSecs(-1), QFileDevice::FileModificationTime); // changed a second ago
    file.close();

    EXPECT_EQ(RunImport(), std::make_pair(1, 0));
    EXPECT_EQ(Names(QString()), QStringList({"Copying.wav", "Download.wav.part"}));
    EXPECT_EQ(LogLinesWith(QStringLiteral("2 still being written")).size(), 1);

    now = now.addSecs(5); // the copy has settled; the partial download is still partial
    EXPECT_EQ(RunImport(), std::make_pair(1, 0));
    EXPECT_EQ(Names(QString()), QStringList({"Download.wav.part"}));
    EXPECT_EQ(Names(QStringLiteral("done")), QStringList({"Complete.wav", "Copying.wav"}));
}

TEST_F(KernelImportTest, ANameTakenInDoneOrRefusedGetsANumberedName)
{
    Tone("Jingle.wav", Format::Wav16, 300);
    Bytes("Broken.wav", QByteArray("RIFF"));
    EXPECT_EQ(RunImport(), std::make_pair(1, 1));
    Tone("Jingle.wav", Format::Wav16, 400);
    Bytes("Broken.wav", QByteArray("RIFF again"));
    EXPECT_EQ(RunImport(), std::make_pair(1, 1));

    EXPECT_EQ(Names(QStringLiteral("done")), QStringList({"Jingle-1.wav", "Jingle.wav"}));
    EXPECT_EQ(Names(QStringLiteral("refused")),
              QStringList({"Broken-1.wav", "Broken-1.wav.reason.txt", "Broken.wav", "Broken.wav.reason.txt"}));
    const QStringList carts = CartsWithDescription(QStringLiteral("Jingle"));
    ASSERT_EQ(carts.size(), 2) << "the same name twice is two carts";
    EXPECT_NE(carts.at(0), carts.at(1));
}

TEST_F(KernelImportTest, TheFolderAndTheFamilyComeFromTheSharedSettings)
{
    kernel->SetConfig(QStringLiteral("ImportDir"), QStringLiteral("incoming/audio"));
    kernel->SetConfig(QStringLiteral("ImportFamily"), QStringLiteral("IMQ"));
    EXPECT_EQ(kernel->ImportDirectory(), station.Folder().Root() + QStringLiteral("incoming/audio"));
    EXPECT_EQ(RunImport(), std::make_pair(0, 0));
    EXPECT_TRUE(QDir(kernel->ImportDirectory()).exists()) << "a missing folder is made";

    QSignalSpy families(kernel->Families().get(), &iFamilies::Changed);
    Tone("News intro.ogg", Format::Ogg, 800);
    EXPECT_EQ(RunImport(), std::make_pair(1, 0));
    EXPECT_EQ(families.count(), 1) << "the family was made";
    ASSERT_TRUE(kernel->Families()->Exists(QStringLiteral("IMQ")));
    const auto family = kernel->Families()->Item(QStringLiteral("IMQ"));
    ASSERT_EQ(family->Count(), 1);
    EXPECT_EQ(family->Item(1)->Description(), QStringLiteral("News intro"));
}

TEST_F(KernelImportTest, AnImportAskedForDuringARunScansAgainWhenItEnds)
{
    Tone("First.wav", Format::Wav16, 300);
    kernel->Import();
    kernel->Import(); // while the first runs: one more scan, not a second thread
    ASSERT_TRUE(finished->wait(60000));
    EXPECT_TRUE(kernel->Importing()) << "the second scan started";
    ASSERT_TRUE(finished->wait(60000));
    EXPECT_EQ(finished->count(), 2);
    EXPECT_EQ(finished->at(0).at(0).toInt() + finished->at(1).at(0).toInt(), 1) << "the file came in once";
    EXPECT_FALSE(kernel->Importing());
}

TEST_F(KernelImportTest, AFailureOutsideTheFileLeavesItForTheNextScan)
{
    Tone("Promo.wav", Format::Wav16, 300);
    kernel->SetConfig(QStringLiteral("SoundPath(1)"), QStringLiteral("station.ini/sound")); // a folder that cannot be made
    EXPECT_EQ(RunImport(), std::make_pair(0, 0));
    EXPECT_EQ(Names(QString()), QStringList({"Promo.wav"}));
    EXPECT_EQ(LogLinesWith(QStringLiteral("Promo.wav left for the next import: Cannot copy")).size(), 1);
    EXPECT_TRUE(CartsWithDescription(QStringLiteral("Promo")).isEmpty());

    kernel->SetConfig(QStringLiteral("SoundPath(1)"), QString());
    EXPECT_EQ(RunImport(), std::make_pair(1, 0));
    EXPECT_EQ(Names(QStringLiteral("done")), QStringList({"Promo.wav"}));
}

TEST_F(KernelImportTest, TheTitleComesFromTheFilesTagsWhenItHasThem)
{
    Tagged(QStringLiteral("track01.wav"), "Morning Show", "The Station Band");
    Tagged(QStringLiteral("track02.wav"), "Traffic Bed", "");
    Tagged(QStringLiteral("Plain name.wav"), "", "Nobody");
    EXPECT_EQ(RunImport(), std::make_pair(3, 0));
    EXPECT_EQ(CartsWithDescription(QStringLiteral("The Station Band - Morning Show")).size(), 1);
    EXPECT_EQ(CartsWithDescription(QStringLiteral("Traffic Bed")).size(), 1);
    EXPECT_EQ(CartsWithDescription(QStringLiteral("Plain name")).size(), 1) << "an artist without a title is no title";
}
