#include "test_CartsFixture.h"
#include "kernel/EnergyFile.h"
#include "kernel/StoreWatcher.h"
#include "kernelapi/iRecalculation.h"
#include "tools/ToneFile.h"
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QTest>

namespace {
const QString Family = QStringLiteral("REC");

class FamilyRecalculationTest : public CartWorldTest
{
protected:
    void SetUp() override { families->Add(Family, QStringLiteral("Recalculated")); }

    QString ID(int number) const { return Family + QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0')); }

    // A tone of that length in the sound folder, without its energy file.
    QString Tone(const QString& name, qint64 ms) const
    {
        ToneFile{ToneFile::Format::Wav16, 8000, 1, ms}.Write(station.SoundDir() + name);
        return name;
    }

    void AddCart(const QString& id, const char* type, int time) const
    {
        Run(SoundDb, QStringLiteral("INSERT INTO Cart (ID, Descripcio, Type, Time) VALUES (?, ?, ?, ?)"), {id, id, QLatin1String(type), time});
    }

    // A sound cart whose stored length is wrong: stop mark past any end, time a few ms.
    void AddSound(const QString& id, const QString& file) const
    {
        AddCart(id, "S", 7);
        Run(SoundDb, QStringLiteral("INSERT INTO Sound (ID, Filename, Start, Stop, StartMark, StopMark) VALUES (?, ?, 0, 99999, 0, 99999)"), {id, file});
    }

    void AddMacro(const QString& id, const QStringList& steps) const
    {
        AddCart(id, "M", 7);
        for (int i = 0; i < steps.size(); ++i)
            Run(SoundDb, QStringLiteral("INSERT INTO RMacro (MacroID, [Index], SoundID) VALUES (?, ?, ?)"), {id, i, steps[i]});
    }

    int Time(const QString& id) const { return CartField(QStringLiteral("Time"), id).toInt(); }
    int Stop(const QString& id) const { return Read(SoundDb, QStringLiteral("SELECT Stop FROM Sound WHERE ID = ?"), {id}).toInt(); }

    std::shared_ptr<iRecalculation> Start(bool accurate) const { return families->Item(Family)->Recalculate(accurate); }

    static bool RunToTheEnd(const iRecalculation& recalculation)
    {
        return QTest::qWaitFor([&] { return !recalculation.Running(); }, 60000);
    }

    static bool FirstCartsDone(const iRecalculation& recalculation)
    {
        return QTest::qWaitFor([&] { return recalculation.Done() > 0; }, 60000);
    }

    // Sound carts 1 to count, all on one file of 1000 ms, stored 7 ms long.
    void AddSounds(int count, const QString& name) const
    {
        const QString file = Tone(name, 1000);
        for (int number = 1; number <= count; ++number)
            AddSound(ID(number), file);
    }

    // How many carts of the family hold the measured length; each holds it or the old one.
    int Written(int count) const
    {
        int written = 0;
        for (int number = 1; number <= count; ++number) {
            const int time = Time(ID(number));
            EXPECT_TRUE(time == 1000 || time == 7) << ID(number).toStdString() << " " << time;
            written += time == 1000;
        }
        return written;
    }
};

class RecalculationModes : public FamilyRecalculationTest, public ::testing::WithParamInterface<bool>
{
};
}

TEST_P(RecalculationModes, GoodFilesAreWrittenAndBadOnesCountedLoggedAndLeftAlone)
{
    AddSound(ID(1), Tone(QStringLiteral("rec-long.wav"), 1000));
    AddSound(ID(2), QStringLiteral("rec-missing.wav"));
    QFile corrupt(station.SoundDir() + QStringLiteral("rec-corrupt.wav"));
    ASSERT_TRUE(corrupt.open(QIODevice::WriteOnly));
    corrupt.write(QByteArray("RIFF this is no audio at all").repeated(40));
    corrupt.close();
    AddSound(ID(3), QStringLiteral("rec-corrupt.wav"));
    AddMacro(ID(4), {ID(1), ID(6), QString()});
    AddCart(ID(5), "C", 3);
    AddSound(ID(6), Tone(QStringLiteral("rec-short.wav"), 500));
    const int jingles = Time(QStringLiteral("JIN0001"));

    const std::shared_ptr<iRecalculation> recalculation = Start(GetParam());
    QSignalSpy finished(recalculation.get(), &iRecalculation::Finished);
    QSignalSpy progress(recalculation.get(), &iRecalculation::Progress);
    QSignalSpy reloaded(families->Item(Family).get(), &iFamily::ChangedContents);
    EXPECT_TRUE(recalculation->Running());
    EXPECT_EQ(recalculation->Total(), 6);
    EXPECT_EQ(recalculation->Done(), 0) << "nothing happens before the event loop runs";
    ASSERT_TRUE(RunToTheEnd(*recalculation));

    ASSERT_EQ(finished.count(), 1);
    EXPECT_EQ(finished.first().first().toInt(), 2);
    EXPECT_EQ(recalculation->Failed(), 2);
    EXPECT_EQ(recalculation->Done(), 6);
    EXPECT_FALSE(progress.isEmpty());
    EXPECT_EQ(progress.last().at(0).toInt(), 6);
    EXPECT_EQ(reloaded.count(), 1) << "the family's holders read it again once";

    EXPECT_EQ(Time(ID(1)), 1000);
    EXPECT_EQ(Stop(ID(1)), 1000) << "the stop mark is fitted to the length";
    EXPECT_EQ(Time(ID(6)), 500);
    EXPECT_TRUE(QFile::exists(EnergyFile::PathFor(station.SoundDir() + QStringLiteral("rec-long.wav"))));
    EXPECT_EQ(Time(ID(4)), 1500) << "a macro lasts as long as its steps, measured first";
    EXPECT_EQ(Time(ID(2)), 7);
    EXPECT_EQ(Stop(ID(2)), 99999);
    EXPECT_EQ(Time(ID(3)), 7);
    EXPECT_EQ(Stop(ID(3)), 99999);
    EXPECT_EQ(Time(ID(5)), 3);
    EXPECT_EQ(Time(QStringLiteral("JIN0001")), jingles) << "other families are not touched";
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR")).filter(ID(2)).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR")).filter(ID(3)).size(), 1);
    EXPECT_EQ(LogLinesWith(QStringLiteral("ERROR")).size(), 2);
    EXPECT_EQ(carts->Cart(ID(1))->Time(), 1000) << "live carts read their row again";
}

INSTANTIATE_TEST_SUITE_P(FastAndAccurate, RecalculationModes, ::testing::Bool());

TEST_F(FamilyRecalculationTest, StopKeepsTheFinishedCartsAndLeavesTheRest)
{
    AddSounds(300, QStringLiteral("rec-stop.wav"));
    const std::shared_ptr<iRecalculation> recalculation = Start(true);
    QObject::connect(recalculation.get(), &iRecalculation::Progress, recalculation.get(), [&](int done) {
        if (done >= 2)
            recalculation->Stop();
    });
    ASSERT_TRUE(RunToTheEnd(*recalculation));

    EXPECT_GE(recalculation->Done(), 2);
    EXPECT_LT(recalculation->Done(), 300);
    EXPECT_EQ(Written(300), recalculation->Done());
    EXPECT_EQ(recalculation->Failed(), 0);
}

TEST_F(FamilyRecalculationTest, ACartDeletedDuringTheRunIsSkippedAndNotWrittenBack)
{
    const QString file = Tone(QStringLiteral("rec-deleted.wav"), 1000);
    for (int number = 1; number <= 60; ++number)
        AddSound(ID(number), file);
    const std::shared_ptr<iRecalculation> recalculation = Start(true);
    bool deleted = false;
    QObject::connect(recalculation.get(), &iRecalculation::Progress, recalculation.get(), [&] {
        if (!std::exchange(deleted, true)) {
            EXPECT_FALSE(carts->DeleteCart(ID(60), false).failed);
        }
    });
    ASSERT_TRUE(RunToTheEnd(*recalculation));

    EXPECT_TRUE(deleted);
    EXPECT_EQ(recalculation->Failed(), 0);
    EXPECT_FALSE(HasRow(SoundDb, QStringLiteral("Cart"), ID(60)));
    EXPECT_FALSE(HasRow(SoundDb, QStringLiteral("Sound"), ID(60))) << "a deleted cart's row is not made again";
    EXPECT_EQ(Time(ID(59)), 1000);
}

TEST_F(FamilyRecalculationTest, AnEmptyFamilyFinishesAndALetGoRunEndsQuietly)
{
    const std::shared_ptr<iRecalculation> empty = Start(false);
    QSignalSpy finished(empty.get(), &iRecalculation::Finished);
    ASSERT_TRUE(RunToTheEnd(*empty));
    EXPECT_EQ(finished.count(), 1);
    EXPECT_EQ(empty->Total(), 0);

    const QString file = Tone(QStringLiteral("rec-dropped.wav"), 1000);
    for (int number = 1; number <= 100; ++number)
        AddSound(ID(number), file);
    std::shared_ptr<iRecalculation> dropped = Start(true);
    QTest::qWait(0);
    dropped.reset();
    QTest::qWait(0);
    EXPECT_TRUE(LogLinesWith(QStringLiteral("ERROR")).isEmpty());
}

TEST_F(FamilyRecalculationTest, TheWatcherLeavesTheFamilyAloneDuringARunAndStillRefreshesTheOthers)
{
    AddSounds(120, QStringLiteral("rec-watched.wav"));
    const std::shared_ptr<iFamily> family = families->Item(Family);
    const std::shared_ptr<iFamily> jingles = families->Item(QStringLiteral("JIN"));
    ASSERT_EQ(family->Item(1)->Time(), 7) << "the family's carts are read before the run";
    ASSERT_GT(jingles->Count(), 0);
    jingles->Item(1);
    const qsizetype connections = QSqlDatabase::connectionNames().size();
    QSignalSpy familyChanged(family.get(), &iFamily::ChangedContents);
    QSignalSpy jinglesChanged(jingles.get(), &iFamily::ChangedContents);

    for (int run = 1; run <= 2; ++run) {
        const std::shared_ptr<iRecalculation> recalculation = Start(run == 1);
        ASSERT_TRUE(FirstCartsDone(*recalculation));
        // Another writer changes a jingle while the run's own writes are in the store too.
        Run(SoundDb, QStringLiteral("UPDATE Cart SET Time = ? WHERE ID = ?"), {run * 1000, jingles->Item(1)->ID()});
        kernel->Watcher().Tick();
        EXPECT_EQ(familyChanged.count(), run - 1) << "run " << run << ": no refresh of the family under recalculation";
        EXPECT_EQ(jinglesChanged.count(), run) << "run " << run << ": other families are refreshed";
        ASSERT_TRUE(RunToTheEnd(*recalculation));
        EXPECT_EQ(familyChanged.count(), run) << "run " << run << ": the family hears once, at the end";
        EXPECT_EQ(recalculation->Done(), 120);
        EXPECT_EQ(Written(120), 120);
        EXPECT_EQ(QSqlDatabase::connectionNames().size(), connections) << "the worker's connection is gone";
    }
    kernel->Watcher().Tick();
    EXPECT_EQ(familyChanged.count(), 2) << "the watcher takes the family up again, with nothing new to tell";
    EXPECT_EQ(family->Item(120)->Time(), 1000);
}

TEST_F(FamilyRecalculationTest, ClosingTheKernelMidRunEndsTheWorkerAndClosesItsConnectionAtOnce)
{
    AddSounds(300, QStringLiteral("rec-closed.wav"));
    const qsizetype connections = QSqlDatabase::connectionNames().size();
    const std::shared_ptr<iRecalculation> recalculation = Start(true);
    QSignalSpy finished(recalculation.get(), &iRecalculation::Finished);
    ASSERT_TRUE(FirstCartsDone(*recalculation));

    kernel.reset();
    EXPECT_EQ(QSqlDatabase::connectionNames().size(), connections) << "the worker ended with the kernel";
    ASSERT_TRUE(RunToTheEnd(*recalculation));
    EXPECT_EQ(finished.count(), 1);
    EXPECT_LT(recalculation->Done(), 300);
    EXPECT_EQ(Written(300), recalculation->Done()) << "every cart written is counted, none more";
    EXPECT_TRUE(LogLinesWith(QStringLiteral("ERROR")).isEmpty());
}

TEST_F(FamilyRecalculationTest, ACatalogueTheWorkerCannotOpenEndsTheRunWithAnErrorLine)
{
    AddSounds(3, QStringLiteral("rec-unopened.wav"));
    // The worker's connection attaches User.MDB as the kernel's does; the kernel's keeps its
    // open file, a new one finds none.
    const QString users = station.DataDir() + QLatin1String(UserDb);
    ASSERT_TRUE(QFile::rename(users, users + QStringLiteral(".away")));
    const std::shared_ptr<iRecalculation> recalculation = Start(false);
    QSignalSpy finished(recalculation.get(), &iRecalculation::Finished);
    const bool ended = RunToTheEnd(*recalculation);
    ASSERT_TRUE(QFile::rename(users + QStringLiteral(".away"), users));
    ASSERT_TRUE(ended);

    EXPECT_EQ(finished.count(), 1);
    EXPECT_EQ(recalculation->Done(), 0);
    const QStringList errors = LogLinesWith(QStringLiteral("ERROR"));
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().contains(QStringLiteral("Family %1").arg(Family))) << errors.first().toStdString();
    EXPECT_TRUE(errors.first().contains(QLatin1String(UserDb))) << errors.first().toStdString();
    EXPECT_EQ(Written(3), 0);
}
