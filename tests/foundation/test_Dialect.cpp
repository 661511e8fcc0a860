#include "foundation/Strings.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "foundation/db/SqlDialect.h"
#include "kernelapi/KernelError.h"
#include <QSqlQuery>
#include <QTemporaryDir>
#include "support/TestServer.h"
#include <gtest/gtest.h>

namespace {
using Engine = SqlDialect::Engine;

// The inner quoting of a file name (the quoting rule without its outer quotes).
QString InnerQuoted(const QString& text)
{
    const QString quoted = SqlQuote(text);
    return quoted.mid(1, quoted.size() - 2);
}

QString LiveSearch(const QString& t)
{
    return "SELECT * FROM cart WHERE ID like '%" + t + "%'  OR Descripcio like '%" + t + "%' OR Comentari like '%" + t
           + "%'";
}

QString OrphanScan(const QString& file)
{
    return "SELECT * FROM Sound WHERE Filename like '*" + InnerQuoted(file) + "*'";
}

QString SaveFilter(const QString& where, const QString& order)
{
    return "UPDATE Filters SET WhereClause = " + SqlQuote(where) + ", OrderByClause = " + SqlQuote(order)
           + " WHERE ProgramName = 'Morning' AND FilterName = 'Rock'";
}

struct Case
{
    QString catalogue;
    QString sqlite;
    QString postgres;
};

void ExpectTranslations(const std::vector<Case>& cases, bool criteria)
{
    const auto sqlite = SqlDialect::For(Engine::SQLite);
    const auto postgres = SqlDialect::For(Engine::PostgreSQL);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.catalogue.toStdString());
        EXPECT_EQ(criteria ? sqlite->TranslateCriteria(c.catalogue) : sqlite->Translate(c.catalogue), c.sqlite);
        EXPECT_EQ(criteria ? postgres->TranslateCriteria(c.catalogue) : postgres->Translate(c.catalogue), c.postgres);
    }
}
}

TEST(SqlDialect, TranslatesEveryStatementOfTheProgram)
{
    ExpectTranslations(
        {
            {"SELECT * FROM Sound ORDER BY ID", "SELECT * FROM Sound ORDER BY ID", "SELECT * FROM Sound ORDER BY ID"},
            {"SELECT * FROM Cart WHERE TYPE = 'S'", "SELECT * FROM Cart WHERE TYPE = 'S'", "SELECT * FROM Cart WHERE TYPE = 'S'"},
            {"SELECT * from Cart WHERE ID like 'JIN*' ORDER BY ID", "SELECT * from Cart WHERE ID LIKE 'JIN%' ORDER BY ID",
             "SELECT * from Cart WHERE ID ILIKE 'JIN%' ORDER BY ID"},
            {LiveSearch("rock"),
             "SELECT * FROM cart WHERE ID LIKE '%rock%'  OR Descripcio LIKE '%rock%' OR Comentari LIKE '%rock%'",
             "SELECT * FROM cart WHERE ID ILIKE '%rock%'  OR Descripcio ILIKE '%rock%' OR Comentari ILIKE '%rock%'"},
            {OrphanScan("O'Brien.wav"), "SELECT * FROM Sound WHERE Filename LIKE '%O''Brien.wav%'",
             "SELECT * FROM Sound WHERE Filename ILIKE '%O''Brien.wav%'"},
            {"SELECT * FROM Filters WHERE ProgramName = 'Morning' AND FilterName = 'Rock'",
             "SELECT * FROM Filters WHERE ProgramName = 'Morning' AND FilterName = 'Rock'",
             "SELECT * FROM Filters WHERE ProgramName = 'Morning' AND FilterName = 'Rock'"},
            {"SELECT * FROM Jingles WHERE ProgramName = 'Morning' ORDER BY [Index]",
             "SELECT * FROM Jingles WHERE ProgramName = 'Morning' ORDER BY \"Index\"",
             "SELECT * FROM Jingles WHERE ProgramName = 'Morning' ORDER BY \"index\""},
            // The stored clause keeps its quotes and its * (it is no LIKE operand here).
            {SaveFilter("Title like 'A*'", "Title"),
             "UPDATE Filters SET WhereClause = 'Title like ''A*''', OrderByClause = 'Title' WHERE ProgramName = 'Morning' AND "
             "FilterName = 'Rock'",
             "UPDATE Filters SET WhereClause = 'Title like ''A*''', OrderByClause = 'Title' WHERE ProgramName = 'Morning' AND "
             "FilterName = 'Rock'"},
            {"SELECT * FROM DiscInfoIDs", "SELECT * FROM DiscInfoIDs", "SELECT * FROM DiscInfoIDs"},
            {"SELECT * FROM [All] WHERE ID = 'D1' AND Property = 'Title'",
             "SELECT * FROM \"All\" WHERE ID = 'D1' AND Property = 'Title'",
             "SELECT * FROM \"all\" WHERE ID = 'D1' AND Property = 'Title'"},
            {"SELECT * FROM CrossSections WHERE Title like 'A*' ORDER BY Title",
             "SELECT * FROM CrossSections WHERE Title LIKE 'A%' ORDER BY Title",
             "SELECT * FROM CrossSections WHERE Title ILIKE 'A%' ORDER BY Title"},
            {"SELECT DISTINCT [Property] FROM Sections", "SELECT DISTINCT \"Property\" FROM Sections",
             "SELECT DISTINCT \"property\" FROM Sections"},
            {"SELECT DISTINCT [Value] FROM Sections WHERE [Property] = 'Genre'",
             "SELECT DISTINCT \"Value\" FROM Sections WHERE \"Property\" = 'Genre'",
             "SELECT DISTINCT \"value\" FROM Sections WHERE \"property\" = 'Genre'"},
            {"SELECT * FROM local_Discs", "SELECT * FROM local_Discs", "SELECT * FROM local_Discs"},
            {"SELECT * FROM remote_Tracks", "SELECT * FROM remote_Tracks", "SELECT * FROM remote_Tracks"},
            {"SELECT * FROM Contents ORDER BY Original", "SELECT * FROM Contents ORDER BY Original",
             "SELECT * FROM Contents ORDER BY Original"},
            {"DELETE FROM RMacro WHERE MacroID = 'PAU4004'", "DELETE FROM RMacro WHERE MacroID = 'PAU4004'",
             "DELETE FROM RMacro WHERE MacroID = 'PAU4004'"},
            {"INSERT INTO RMacro VALUES ('PAU4005', 3, 'CON0003')", "INSERT INTO RMacro VALUES ('PAU4005', 3, 'CON0003')",
             "INSERT INTO RMacro VALUES ('PAU4005', 3, 'CON0003')"},
        },
        false);
}

TEST(SqlDialect, TranslatesCriteriaTexts)
{
    ExpectTranslations(
        {
            {"ID = 'ABC0001'", "ID = 'ABC0001'", "ID = 'ABC0001'"},
            {"UserID='admin'", "UserID='admin'", "UserID='admin'"},
            {"Familia = 'JIN'", "Familia = 'JIN'", "Familia = 'JIN'"},
            {"GrupID = 'G1'", "GrupID = 'G1'", "GrupID = 'G1'"},
            {"familia = 'JIN' and ID = '012'", "familia = 'JIN' and ID = '012'", "familia = 'JIN' and ID = '012'"},
            {"ClientID = 'C1'", "ClientID = 'C1'", "ClientID = 'C1'"},
            {"ID like 'JIN*'", "ID LIKE 'JIN%'", "ID ILIKE 'JIN%'"},
            {"Nom = " + SqlQuote("O'Brien"), "Nom = 'O''Brien'", "Nom = 'O''Brien'"},
            {"Tothom = True AND [Write] = False", "Tothom = 1 AND \"Write\" = 0", "Tothom = true AND \"write\" = false"},
            {"FILER_EMAIL IS NULL AND Year = 1999 AND FILED = #2001-01-31 10:00:00#",
             "FILER_EMAIL IS NULL AND Year = 1999 AND FILED = '2001-01-31T10:00:00.000'",
             "FILER_EMAIL IS NULL AND Year = 1999 AND FILED = TIMESTAMP '2001-01-31 10:00:00.000'"},
        },
        true);
}

TEST(SqlDialect, KeepsMeaningAtTheEdges)
{
    ExpectTranslations(
        {
            // Only LIKE operands are patterns; bind markers and SELECT * stay.
            {"SELECT * FROM Cart WHERE Descripcio = 'Who?*' AND ID = ?", "SELECT * FROM Cart WHERE Descripcio = 'Who?*' AND ID = ?",
             "SELECT * FROM Cart WHERE Descripcio = 'Who?*' AND ID = ?"},
            {"ID NOT LIKE 'A?B*'", "ID NOT LIKE 'A_B%'", "ID NOT ILIKE 'A_B%'"},
            // A pattern built with & is still a pattern; a column stays a column.
            {"Filename like '*' & Descripcio & '*'", "Filename LIKE '%' || Descripcio || '%'",
             "Filename ILIKE '%' || Descripcio || '%'"},
            // Double quotes delimit text, as in the catalogue's own dialect.
            {"Nom = \"Joan \"\"J\"\"\"", "Nom = 'Joan \"J\"'", "Nom = 'Joan \"J\"'"},
            // A character alone is a function call; one inside a sum is not folded.
            {"Nom = chr(39)", "Nom = char(39)", "Nom = chr(39)"},
            {"X = 'a' & 'b' + Y", "X = 'a' || 'b' + Y", "X = 'a' || 'b' + Y"},
            {"UCASE(Nom) = LCASE('A') AND Len(Mid(Nom, 1, 2)) = 2", "upper(Nom) = lower('A') AND length(substr(Nom, 1, 2)) = 2",
             "upper(Nom) = lower('A') AND length(substr(Nom, 1, 2)) = 2"},
            // A backslash is the default LIKE escape of the server, and a plain character here.
            {"Filename like '*c:\\x*'", "Filename LIKE '%c:\\x%'", "Filename ILIKE '%c:\\\\x%'"},
            {"", "", ""},
        },
        false);
}

TEST(SqlDialect, RefusesAnOpenQuoteNameOrDate)
{
    for (Engine engine : {Engine::SQLite, Engine::PostgreSQL}) {
        const auto dialect = SqlDialect::For(engine);
        EXPECT_THROW(dialect->Translate(LiveSearch("O'Brien")), KernelError);
        EXPECT_THROW(dialect->TranslateCriteria("ID = 'ABC"), KernelError);
        EXPECT_THROW(dialect->Translate("SELECT * FROM [All"), KernelError);
        EXPECT_THROW(dialect->TranslateCriteria("FILED = #2001-01-01"), KernelError);
        EXPECT_THROW(dialect->TranslateCriteria("FILED = #not a date#"), KernelError);
        try {
            dialect->Translate("SELECT 'x");
            ADD_FAILURE() << "no error";
        } catch (const KernelError& e) {
            EXPECT_TRUE(e.Description().contains("SELECT 'x")) << e.Description().toStdString();
        }
    }
}

TEST(CatalogueSchema, RendersForBothEngines)
{
    const auto sqlite = SqlDialect::For(Engine::SQLite);
    const auto postgres = SqlDialect::For(Engine::PostgreSQL);
    const QStringList sound = CatalogueSchema::Statements(*sqlite, CatalogueSchema::Catalogue::Sound);
    EXPECT_TRUE(sound.contains("CREATE TABLE IF NOT EXISTS \"RMacro\" (\"MacroID\" VARCHAR(7) COLLATE NOCASE NOT NULL, "
                               "\"Index\" INTEGER, \"SoundID\" VARCHAR(7) COLLATE NOCASE)"))
        << sound.join('\n').toStdString();
    const QStringList server = CatalogueSchema::Statements(*postgres, CatalogueSchema::Catalogue::Sound);
    EXPECT_EQ(server.first(), "CREATE EXTENSION IF NOT EXISTS citext SCHEMA public");
    EXPECT_TRUE(server.filter("CREATE TABLE IF NOT EXISTS \"cart\" (\"id\" korvane_text_7 NOT NULL").size() == 1)
        << server.join('\n').toStdString();
    EXPECT_TRUE(server.filter("CREATE DOMAIN korvane_text_7 AS public.citext").size() == 1);
    const QStringList kernel = CatalogueSchema::Statements(*postgres, CatalogueSchema::Catalogue::Kernel);
    EXPECT_EQ(kernel.filter("\"id\" integer GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY").size(), 11);
}

namespace {
// The three databases of a station with a few rows, the kernel's connection reaching the
// other two as the kernel does: SQLite files, or (when KORVANE_TEST_POSTGRES names a server
// database) the station's three schemas made afresh on that server.
class DialectOnEngine : public ::testing::TestWithParam<Engine>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        if (GetParam() == Engine::PostgreSQL) {
            m_location = FreshServerStation();
            if (m_location.isEmpty())
                GTEST_SKIP() << NoTestServer;
        } else {
            m_location = m_dir.path() + u'/';
        }
        m_sound = Open("Sound", CatalogueSchema::Catalogue::Sound);
        Open("User", CatalogueSchema::Catalogue::User);
        m_kernel = Open("Kernel", CatalogueSchema::Catalogue::Kernel);
        m_kernel->Attach(m_location + "Sound.MDB", "Sound");
        m_kernel->Attach(m_location + "User.MDB", "User");
        Fill();
    }

    std::unique_ptr<Database> Open(const QString& name, CatalogueSchema::Catalogue catalogue)
    {
        auto db = Database::Open(m_location + name + ".MDB", Database::OpenMode::Create);
        CatalogueSchema::Create(*db, catalogue);
        return db;
    }

    void Fill()
    {
        const QStringList rows{
            "INSERT INTO Cart (ID, Descripcio, Comentari, Type) VALUES ('JIN0001', 'Morning Rock', NULL, 'S')",
            "INSERT INTO Cart (ID, Descripcio, Comentari, Type) VALUES ('JIN0002', 'News intro', 'ROCKY road', 'S')",
            "INSERT INTO Cart (ID, Descripcio, Comentari, Type) VALUES ('JIX0001', 'Jingle of O''Brien', '', 'M')",
            "INSERT INTO Cart (ID, Descripcio, Comentari, Type) VALUES ('ROC0001', 'Weather', '', 'C')",
            "INSERT INTO Sound (ID, Filename) VALUES ('JIN0001', 'jingles/O''Brien.wav')",
            "INSERT INTO Sound (ID, Filename) VALUES ('JIN0002', 'news.wav')",
            "INSERT INTO RMacro VALUES ('PAU4004', 1, 'CON0003')",
            "INSERT INTO Filters (ProgramName, FilterName) VALUES ('Morning', 'Rock')",
            "INSERT INTO Jingles VALUES ('Morning', 2, 'second')",
            "INSERT INTO Jingles VALUES ('Morning', 1, 'first')",
            "INSERT INTO Jingles VALUES ('Evening', 0, 'other')",
            "INSERT INTO DiscInfoIDs VALUES ('D1')",
            "INSERT INTO [All] VALUES ('D1', 'Title', 'Blue Train')",
            "INSERT INTO [All] VALUES ('D1', 'Artist', 'Coltrane')",
            "INSERT INTO Sections VALUES ('S1', 'Genre', 'Jazz')",
            "INSERT INTO Sections VALUES ('S2', 'Genre', 'Jazz')",
            "INSERT INTO Sections VALUES ('S2', 'Title', 'Side B')",
            "INSERT INTO CrossSections (SectionID, Title) VALUES ('S1', 'Side A')",
            "INSERT INTO CrossSections (SectionID, Title) VALUES ('S2', 'Blue')",
            "INSERT INTO local_Discs (DiscID, Title) VALUES ('D1', 'Blue Train')",
            "INSERT INTO Contents VALUES ('Exit', 'ca', 'Sortir')",
            "INSERT INTO Contents VALUES ('Add', 'ca', 'Afegir')",
        };
        m_kernel->Transaction([&] {
            for (const QString& row : rows)
                m_kernel->Execute(row);
        });
    }

    // One column of every row of a query on the kernel's connection.
    QStringList Column(const QString& sql, int column = 0)
    {
        QSqlQuery query = m_kernel->Query(sql);
        QStringList values;
        while (query.next())
            values << query.value(column).toString();
        return values;
    }

    // The same for a query with no order of its own.
    QStringList Sorted(const QString& sql, int column = 0)
    {
        QStringList values = Column(sql, column);
        values.sort();
        return values;
    }

    QTemporaryDir m_dir;
    QString m_location; // the data path: a folder or the station's URI
    std::unique_ptr<Database> m_sound;
    std::unique_ptr<Database> m_kernel;
};
}

TEST_P(DialectOnEngine, CartQueriesReturnTheExpectedRows)
{
    EXPECT_EQ(Column("SELECT * FROM Sound ORDER BY ID"), QStringList({"JIN0001", "JIN0002"}));
    EXPECT_EQ(Sorted("SELECT * FROM Cart WHERE TYPE = 's'"), QStringList({"JIN0001", "JIN0002"}));
    EXPECT_EQ(Column("SELECT * from Cart WHERE ID like 'jin*' ORDER BY ID"), QStringList({"JIN0001", "JIN0002"}));
    EXPECT_EQ(Sorted(LiveSearch("rock")), QStringList({"JIN0001", "JIN0002"}));
    EXPECT_EQ(Column(LiveSearch("")).size(), 4);
    EXPECT_EQ(Column(OrphanScan("O'Brien.wav")), QStringList({"JIN0001"}));
    EXPECT_TRUE(Column(OrphanScan("Brien.wav.bak")).isEmpty());
}

TEST_P(DialectOnEngine, AQuoteInTheLiveSearchIsAQueryError)
{
    EXPECT_THROW(m_kernel->Query(LiveSearch("O'Brien")), KernelError);
    EXPECT_THROW(m_kernel->Query(LiveSearch("O'Br'ien")), KernelError);
    // The quoting rule makes the same words safe.
    EXPECT_EQ(Column("SELECT * FROM Cart WHERE Descripcio like '*" + InnerQuoted("O'Brien") + "'"), QStringList({"JIX0001"}));
}

TEST_P(DialectOnEngine, DiscLibraryQueriesReturnTheExpectedRows)
{
    m_kernel->Execute(SaveFilter("Title like 'B*' AND Genre <> 'Rock'", "Title"));
    QSqlQuery filter = m_kernel->Query("SELECT * FROM Filters WHERE ProgramName = 'Morning' AND FilterName = 'Rock'");
    ASSERT_TRUE(filter.next());
    const QString where = filter.value("WhereClause").toString();
    EXPECT_EQ(where, "Title like 'B*' AND Genre <> 'Rock'");
    EXPECT_EQ(filter.value("OrderByClause").toString(), "Title");

    EXPECT_EQ(Column("SELECT * FROM Jingles WHERE ProgramName = 'Morning' ORDER BY [Index]", 2), QStringList({"first", "second"}));
    EXPECT_EQ(Column("SELECT * FROM DiscInfoIDs"), QStringList({"D1"}));
    EXPECT_EQ(Column("SELECT * FROM [All] WHERE ID = 'D1' AND Property = 'Title'", 2), QStringList({"Blue Train"}));
    EXPECT_EQ(Column("SELECT * FROM CrossSections WHERE Title like 'B*' ORDER BY Title"), QStringList({"S2"}));
    EXPECT_EQ(Column("SELECT * FROM CrossSections " + QString("WHERE ") + "Genre IS NULL " + "ORDER BY " + "Title"),
              QStringList({"S2", "S1"}));
    EXPECT_EQ(Sorted("SELECT DISTINCT [Property] FROM Sections"), QStringList({"Genre", "Title"}));
    EXPECT_EQ(Column("SELECT DISTINCT [Value] FROM Sections WHERE [Property] = 'genre'"), QStringList({"Jazz"}));
    EXPECT_EQ(Column("SELECT * FROM local_Discs", 2), QStringList({"Blue Train"}));
    EXPECT_TRUE(Column("SELECT * FROM remote_Discs").isEmpty());
    EXPECT_EQ(Column("SELECT * FROM Contents ORDER BY Original"), QStringList({"Add", "Exit"}));
}

TEST_P(DialectOnEngine, MaintenanceStatementsReachTheSoundDatabase)
{
    m_kernel->Execute("DELETE FROM RMacro WHERE MacroID = 'PAU4004'");
    m_kernel->Execute("DELETE FROM RMacro WHERE MacroID = 'PAU4005'");
    for (int n = 1; n <= 3; ++n)
        m_kernel->Execute("INSERT INTO RMacro VALUES ('PAU4005', " + QString::number(n) + ", 'CON0003')");
    QSqlQuery steps = m_sound->Query("SELECT MacroID, [Index], SoundID FROM RMacro ORDER BY [Index]");
    QStringList seen;
    while (steps.next())
        seen << steps.value(0).toString() + ":" + steps.value(1).toString() + ":" + steps.value(2).toString();
    EXPECT_EQ(seen, QStringList({"PAU4005:1:CON0003", "PAU4005:2:CON0003", "PAU4005:3:CON0003"}));
}

INSTANTIATE_TEST_SUITE_P(Engines, DialectOnEngine, ::testing::Values(Engine::SQLite, Engine::PostgreSQL),
                         [](const auto& info) { return info.param == Engine::SQLite ? "SQLite" : "PostgreSQL"; });
