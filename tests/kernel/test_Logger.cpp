#include "kernel/FileLogger.h"
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {
QStringList LinesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

const QDateTime Stamp(QDate(2024, 3, 5), QTime(13, 4, 5, 67));
}

TEST(FileLogger, WritesOneStampedCanonicalLinePerRecordInTheFileOfItsDay)
{
    QTemporaryDir dir;
    FileLogger logger(dir.filePath("log"));
    logger.Record(Stamp, "WARN: ", "Korvane_Kernel", "Users", "Login", "refused");

    const QString file = dir.filePath("log/2024-03-05.log");
    EXPECT_EQ(logger.FileFor(Stamp.date()), file);
    EXPECT_EQ(LinesOf(file), QStringList{"2024-03-05T13:04:05.067 WARN: Korvane_Kernel.Users.Login: refused"});

    logger.Dump("T", "O", "P", "d");
    logger.Ok("T", "O", "P", "o");
    logger.Error("T", "O", "P", "e");
    logger.Warn("T", "O", "P", "w");
    const QStringList today = LinesOf(logger.FileFor(QDate::currentDate()));
    ASSERT_EQ(today.size(), 4);
    const QRegularExpression stamp("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3} ");
    for (const QString& line : today)
        EXPECT_TRUE(stamp.match(line).hasMatch()) << line.toStdString();
    EXPECT_TRUE(today[0].endsWith(" DUMP: T.O.P: d"));
    EXPECT_TRUE(today[1].endsWith(" OK: T.O.P: o"));
    EXPECT_TRUE(today[2].endsWith(" ERROR: T.O.P: e"));
    EXPECT_TRUE(today[3].endsWith(" WARN: T.O.P: w"));
}

TEST(FileLogger, EscapesLineBreaksSoThatARecordStaysOneLine)
{
    QTemporaryDir dir;
    FileLogger logger(dir.path());
    logger.Record(Stamp, "ERROR: ", "T", "O", "P", "first\nsecond\r\nthird \\n");

    EXPECT_EQ(LinesOf(logger.FileFor(Stamp.date())),
              QStringList{"2024-03-05T13:04:05.067 ERROR: T.O.P: first\\nsecond\\r\\nthird \\\\n"});
}

TEST(FileLogger, ChangesFileAtMidnight)
{
    QTemporaryDir dir;
    FileLogger logger(dir.path());
    const QDateTime beforeMidnight(QDate(2024, 12, 31), QTime(23, 59, 59, 999));
    logger.Record(beforeMidnight, "OK: ", "T", "O", "P", "old year");
    logger.Record(beforeMidnight.addMSecs(1), "OK: ", "T", "O", "P", "new year");

    EXPECT_EQ(LinesOf(dir.filePath("2024-12-31.log")), QStringList{"2024-12-31T23:59:59.999 OK: T.O.P: old year"});
    EXPECT_EQ(LinesOf(dir.filePath("2025-01-01.log")), QStringList{"2025-01-01T00:00:00.000 OK: T.O.P: new year"});
}

TEST(FileLogger, KeepsLinesWholeWhenManyThreadsLog)
{
    QTemporaryDir dir;
    FileLogger logger(dir.path());
    constexpr int threads = 8;
    constexpr int records = 200;
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&logger, t] {
            for (int i = 0; i < records; ++i)
                logger.Record(Stamp, "OK: ", "T", QString::number(t), "P", QString(40, QLatin1Char('x')));
        });
    }
    for (std::thread& worker : workers)
        worker.join();

    const QStringList lines = LinesOf(logger.FileFor(Stamp.date()));
    ASSERT_EQ(lines.size(), threads * records);
    const QRegularExpression whole("^2024-03-05T13:04:05.067 OK: T\\.\\d\\.P: x{40}$");
    for (const QString& line : lines)
        ASSERT_TRUE(whole.match(line).hasMatch()) << line.toStdString();
}

TEST(FileLogger, NeverThrowsWhenItCannotWriteItsFile)
{
    QTemporaryDir dir;
    QFile blocker(dir.filePath("blocked"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    FileLogger onAFile(dir.filePath("blocked")); // the folder is a plain file: lines go to stderr
    FileLogger withoutFolder{QString()};
    EXPECT_NO_THROW(onAFile.Error("T", "O", "P", "lost to stderr"));
    EXPECT_NO_THROW(withoutFolder.Warn("T", "O", "P", "stderr only"));
    EXPECT_FALSE(QFile::exists(onAFile.FileFor(QDate::currentDate())));
}
