#include "foundation/Ini.h"
#include "kernelapi/KernelError.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
const QByteArray StationFile = QByteArrayLiteral(
    "\xEF\xBB\xBF"
    "orphan=before any section\r\n"
    "; Studio 2\r\n"
    "[Station]\r\n"
    "ID = STUDIO2 \r\n"
    "\r\n"
    "# the working resolution\r\n"
    "[Resolution]\r\n"
    "X=1024\r\n"
    "Y=768\r\n"
    "[MENU]\r\n"
    "File=menu.ini\r\n"
    "Query=a=b;c\r\n"
    "x=first\r\n"
    "just text\r\n"
    "[menu]\r\n"
    "X=second\r\n"
    "Rows=3");

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
}

TEST(IniTest, ParsesAStationFile)
{
    const IniFile ini = IniFile::Parse(StationFile);
    EXPECT_EQ(ini.Sections(), QStringList({"Station", "Resolution", "MENU"}));
    EXPECT_EQ(ini.Value("station", "id"), "STUDIO2");
    EXPECT_EQ(ini.Value("Resolution", "Y"), "768");
    EXPECT_EQ(ini.Value("Menu", "Query"), "a=b;c");
    // Duplicate sections are merged and a repeated key keeps its first value.
    EXPECT_EQ(ini.Value("Menu", "X"), "first");
    EXPECT_EQ(ini.Value("Menu", "Rows"), "3");
    EXPECT_EQ(ini.Keys("menu"), QStringList({"File", "Query", "x", "Rows"}));
    EXPECT_TRUE(ini.HasSection(" Station "));
    EXPECT_FALSE(ini.HasSection("orphan"));
    EXPECT_TRUE(ini.Value("Station", "orphan").isNull());
    EXPECT_TRUE(ini.Value("Nowhere", "ID").isNull());
}

TEST(IniTest, ReadIniCutsTrimsAndFallsBackToTheDefault)
{
    const QString longValue = QString(254, QLatin1Char('a')) + QStringLiteral(" tail");
    const IniFile ini = IniFile::Parse("[S]\nEmpty=\nBlank=   \nLong=" + longValue.toUtf8() + "\n");
    EXPECT_EQ(ReadIni(ini, "S", "Long", "d"), QString(254, QLatin1Char('a')));
    EXPECT_EQ(ReadIni(ini, "S", "Empty", "d"), "d");
    EXPECT_EQ(ReadIni(ini, "S", "Blank", "d"), "d");
    EXPECT_EQ(ReadIni(ini, "S", "Missing", " d "), "d");
    EXPECT_EQ(ReadIni(ini, "S", "Missing", "  "), "  ");
    EXPECT_EQ(ReadIni(ini, "T", "Long", ""), "");
    EXPECT_FALSE(ini.Value("S", "Empty").isNull());
    EXPECT_TRUE(ini.Value("S", "Empty").isEmpty());

    // A cut never splits a character outside the basic plane.
    const QString clef = QString::fromUtf8("\xF0\x9D\x84\x9E");
    const IniFile wide = IniFile::Parse("[S]\nK=" + (QString(254, QLatin1Char('a')) + clef).toUtf8());
    EXPECT_EQ(ReadIni(wide, "S", "K", ""), QString(254, QLatin1Char('a')));
}

TEST(IniTest, DecodesUtf8OrLatin1AndAnyLineEnding)
{
    EXPECT_EQ(IniFile::Parse("[S]\nName=M\xC3\xBAsica\n").Value("S", "Name"), QStringLiteral("Música"));
    EXPECT_EQ(IniFile::Parse("[S]\nName=M\xFAsica\n").Value("S", "Name"), QStringLiteral("Música"));
    const IniFile classic = IniFile::Parse("[S]\rA=1\rB=2\n\rC=3");
    EXPECT_EQ(classic.Keys("S"), QStringList({"A", "B", "C"}));
}

TEST(IniTest, SurvivesGarbage)
{
    QByteArray garbage;
    for (int i = 0; i < 4096; ++i)
        garbage += static_cast<char>((i * 7919) % 256);
    garbage += "\n[" + QByteArray(1 << 20, '[') + QByteArrayLiteral("\n=\n[]\n=x\n]\n[S]\nK\0V=1\n");
    const IniFile ini = IniFile::Parse(garbage);
    EXPECT_TRUE(ini.HasSection(""));
    EXPECT_EQ(ini.Keys("S").size(), 1);
    EXPECT_EQ(ReadIni(ini, "S", QString::fromLatin1("K\0V", 3), "d"), "1");
}

TEST(IniTest, WithValueReplacesOnlyTheValue)
{
    const QByteArray edited = IniFile::WithValue(StationFile, "STATION", "id", "STUDIO3");
    QByteArray expected = StationFile;
    expected.replace("ID = STUDIO2 \r\n", "ID = STUDIO3\r\n");
    EXPECT_EQ(edited, expected);

    // The first value of a merged section is the one read, so it is the one replaced.
    const QByteArray menu = IniFile::WithValue(StationFile, "Menu", "X", "new");
    EXPECT_EQ(ReadIni(IniFile::Parse(menu), "Menu", "X", ""), "new");
    EXPECT_TRUE(menu.contains("X=second"));
}

TEST(IniTest, WithValueAddsKeysAndSections)
{
    // A new key goes after the last key of the section, in the file's line ending.
    QByteArray edited = IniFile::WithValue(StationFile, "Resolution", "Depth", "32");
    EXPECT_TRUE(edited.contains("Y=768\r\nDepth=32\r\n[MENU]"));

    edited = IniFile::WithValue("[A]\nk=1", "A", "j", "2");
    EXPECT_EQ(edited, "[A]\nk=1\nj=2\n");

    edited = IniFile::WithValue("[A]\nk=1", "B", "j", "2");
    EXPECT_EQ(edited, "[A]\nk=1\n\n[B]\nj=2\n");

    edited = IniFile::WithValue("", "Station", "ID", "S1");
    EXPECT_EQ(edited, "[Station]\nID=S1\n");
}

TEST(IniTest, WithValueKeepsTheFileEncoding)
{
    const QByteArray latin1 = "[S]\nName=M\xFAsica\n";
    EXPECT_EQ(IniFile::WithValue(latin1, "S", "Id", "7"), latin1 + "Id=7\n");

    const QByteArray upgraded = IniFile::WithValue(latin1, "S", "Id", QStringLiteral("Ñ"));
    EXPECT_EQ(upgraded, "[S]\nName=M\xC3\xBAsica\nId=\xC3\x91\n");
    EXPECT_EQ(IniFile::Parse(upgraded).Value("S", "Name"), QStringLiteral("Música"));
}

TEST(IniTest, WithValueRefusesWhatAFileCannotHold)
{
    EXPECT_THROW(IniFile::WithValue("", "S", "", "v"), KernelError);
    EXPECT_THROW(IniFile::WithValue("", "S", "a=b", "v"), KernelError);
    EXPECT_THROW(IniFile::WithValue("", "S", "[k", "v"), KernelError);
    EXPECT_THROW(IniFile::WithValue("", "S", ";k", "v"), KernelError);
    EXPECT_THROW(IniFile::WithValue("", "S]", "k", "v"), KernelError);
    EXPECT_THROW(IniFile::WithValue("", "S", "k", "two\nlines"), KernelError);
}

TEST(IniTest, WriteIniCreatesAndUpdatesFilesOnDisk)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath("station.ini");

    EXPECT_TRUE(WriteIni("Station", "ID", "S1", path));
    EXPECT_TRUE(WriteIni("Resolution", "X", "1024", path));
    EXPECT_TRUE(WriteIni("Station", "ID", "S2", path));
    EXPECT_EQ(ReadIni("Station", "ID", "", path), "S2");
    EXPECT_EQ(ReadAll(path), "[Station]\nID=S2\n\n[Resolution]\nX=1024\n");

    EXPECT_FALSE(WriteIni("Station", "ID", "S3", dir.filePath("missing/station.ini")));
    EXPECT_FALSE(WriteIni("Station", "", "S3", path));
    EXPECT_FALSE(WriteIni("Station", "ID", "S3", dir.path())); // a folder, not a file
    EXPECT_EQ(ReadIni("Station", "ID", "", path), "S2");
    EXPECT_EQ(ReadIni("Station", "ID", "none", dir.filePath("absent.ini")), "none");
}
