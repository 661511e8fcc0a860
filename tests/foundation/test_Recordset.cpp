#include "foundation/Strings.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "foundation/db/SqlDialect.h"
#include "kernelapi/KernelError.h"
#include <QDateTime>
#include <QSqlQuery>
#include <QTemporaryDir>
#include "support/TestServer.h"
#include <gtest/gtest.h>

namespace {
// Sound.MDB and User.MDB with a few rows, and a second connection standing for another
// workstation: SQLite files, or a station's schemas on the test server, so that the same
// suite runs on both engines.
class RecordsetTest : public ::testing::TestWithParam<SqlDialect::Engine>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        m_location = m_dir.path() + u'/';
        if (GetParam() == SqlDialect::Engine::PostgreSQL) {
            m_location = FreshServerStation();
            if (m_location.isEmpty())
                GTEST_SKIP() << NoTestServer;
        }
        m_sound = Database::Open(m_location + "Sound.MDB", Database::OpenMode::Create);
        CatalogueSchema::CreateSoundSchema(*m_sound);
        m_user = Database::Open(m_location + "User.MDB", Database::OpenMode::Create);
        CatalogueSchema::CreateUserSchema(*m_user);
        m_other = Database::Open(m_location + "Sound.MDB");
        m_sound->Transaction([&] {
            AddCart("JIN0002", "Second jingle", "S");
            AddCart("JIN0001", "First jingle", "S");
            AddCart("CON0003", "Pause", "C");
        });
    }

    void AddCart(const QString& id, const QVariant& description, const QString& type)
    {
        m_sound->Query("INSERT INTO Cart (ID, Descripcio, Type) VALUES (?, ?, ?)", {id, description, type});
    }

    static QStringList Ids(iRecordset& rs)
    {
        QStringList ids;
        for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext())
            ids << rs.Text("ID");
        return ids;
    }

    QString StoredText(Database& db, const QString& sql)
    {
        QSqlQuery query = db.Query(sql);
        return query.next() ? query.value(0).toString() : QStringLiteral("<no row>");
    }

    QTemporaryDir m_dir;
    QString m_location; // the data path: a folder or a station's URI
    std::unique_ptr<Database> m_sound;
    std::unique_ptr<Database> m_user;
    std::unique_ptr<Database> m_other;
};
}

TEST_P(RecordsetTest, MovesThroughATableInKeyOrder)
{
    auto rs = m_sound->OpenRecordset("Cart");
    EXPECT_TRUE(rs->Updatable());
    EXPECT_EQ(rs->RecordCount(), 3);
    EXPECT_FALSE(rs->IsBOF());
    EXPECT_EQ(rs->Text("ID"), "CON0003");
    rs->MoveLast();
    EXPECT_EQ(rs->Text("ID"), "JIN0002");
    rs->MoveNext();
    EXPECT_TRUE(rs->IsEOF());
    EXPECT_THROW(rs->MoveNext(), KernelError);
    EXPECT_THROW(rs->Value("ID"), KernelError);
    rs->MovePrevious();
    rs->MovePrevious();
    EXPECT_EQ(rs->Value(0).toString(), "JIN0001");
    rs->MoveFirst();
    rs->MovePrevious();
    EXPECT_TRUE(rs->IsBOF());
    EXPECT_THROW(rs->MovePrevious(), KernelError);
    EXPECT_EQ(Ids(*rs), QStringList({"CON0003", "JIN0001", "JIN0002"}));

    auto empty = m_sound->OpenRecordset("SELECT * FROM Cart WHERE ID = 'NONE000'");
    EXPECT_TRUE(empty->IsBOF());
    EXPECT_TRUE(empty->IsEOF());
    EXPECT_EQ(empty->RecordCount(), 0);
    empty->MoveLast();
    empty->MoveFirst();
    EXPECT_THROW(empty->MoveNext(), KernelError);
}

TEST_P(RecordsetTest, DescribesItsFields)
{
    auto rs = m_sound->OpenRecordset("[Cart]");
    ASSERT_EQ(rs->FieldCount(), 7);
    EXPECT_EQ(rs->FieldName(0), "ID");
    EXPECT_EQ(rs->FieldSize(0), 7);
    EXPECT_EQ(rs->FieldKind(0), iRecordset::FieldType::Text);
    EXPECT_EQ(rs->FieldIndex("type"), 3);
    EXPECT_EQ(rs->FieldSize(3), 1);
    EXPECT_EQ(rs->FieldKind(rs->FieldIndex("StartDate")), iRecordset::FieldType::DateTime);
    EXPECT_EQ(rs->FieldKind(rs->FieldIndex("Time")), iRecordset::FieldType::Integer);
    EXPECT_EQ(rs->FieldIndex("Nothing"), -1);
    EXPECT_THROW(rs->Value("Nothing"), KernelError);
    EXPECT_THROW(rs->FieldName(7), KernelError);

    // A select of some columns keeps their declared sizes.
    auto some = m_sound->OpenRecordset("SELECT Type, ID FROM Cart ORDER BY ID DESC");
    EXPECT_EQ(some->FieldCount(), 2);
    EXPECT_EQ(some->FieldSize(1), 7);
    EXPECT_EQ(some->Text("ID"), "JIN0002");
}

TEST_P(RecordsetTest, FindsFirstAndNextByCriteria)
{
    auto rs = m_sound->OpenRecordset("Cart");
    rs->FindFirst("ID like 'JIN*'");
    EXPECT_FALSE(rs->NoMatch());
    EXPECT_EQ(rs->Text("ID"), "JIN0001");
    rs->FindNext("ID like 'JIN*'");
    EXPECT_EQ(rs->Text("ID"), "JIN0002");
    rs->FindNext("ID like 'JIN*'");
    EXPECT_TRUE(rs->NoMatch());
    EXPECT_EQ(rs->Text("ID"), "JIN0002") << "a failed search leaves the current row";

    rs->FindFirst("ID = 'jin0001'");
    EXPECT_FALSE(rs->NoMatch()) << "text comparison ignores case";
    EXPECT_EQ(rs->Text("ID"), "JIN0001");
    rs->FindFirst("ID = 'XYZ0000'");
    EXPECT_TRUE(rs->NoMatch());

    AddCart("JIN0003", "Song of O'Brien", "S");
    rs->Requery();
    rs->FindFirst("Descripcio = " + SqlQuote("Song of O'Brien"));
    EXPECT_EQ(rs->Text("ID"), "JIN0003");
    EXPECT_THROW(rs->FindFirst("Descripcio = 'Song of O'Brien'"), KernelError);
    EXPECT_THROW(rs->FindFirst("ID = 'JIN"), KernelError);

    // A read-only recordset is searched by its values.
    auto types = m_sound->OpenRecordset("SELECT DISTINCT Type FROM Cart ORDER BY Type");
    types->FindFirst("Type = 's'");
    EXPECT_FALSE(types->NoMatch());
    EXPECT_EQ(types->Text("Type"), "S");
}

TEST_P(RecordsetTest, OpensAFilteredViewOfTheSameSource)
{
    m_user->Transaction([&] {
        m_user->Execute("INSERT INTO RFamilia VALUES ('G1', 'JIN', True)");
        m_user->Execute("INSERT INTO RFamilia VALUES ('G2', 'JIN', False)");
        m_user->Execute("INSERT INTO RFamilia VALUES ('G1', 'CON', False)");
    });
    auto rs = m_user->OpenRecordset("RFamilia");
    rs->SetFilter("Familia = 'jin'");
    EXPECT_EQ(rs->Filter(), "Familia = 'jin'");
    auto view = rs->OpenRecordset();
    view->MoveLast();
    view->MoveFirst();
    EXPECT_EQ(view->RecordCount(), 2);
    view->FindFirst("GrupID = 'G2'");
    EXPECT_FALSE(view->Value("Write").toBool());
    view->Edit();
    view->SetValue("Write", true);
    view->Update();
    QSqlQuery written = m_user->Query("SELECT Write FROM RFamilia WHERE GrupID = 'G2'");
    ASSERT_TRUE(written.next());
    EXPECT_TRUE(written.value(0).toBool());

    // A text with its own WHERE and ORDER BY keeps both.
    auto carts = m_sound->OpenRecordset("SELECT * FROM Cart WHERE Type = 'S' ORDER BY ID DESC");
    carts->SetFilter("ID <> 'JIN0002'");
    EXPECT_EQ(Ids(*carts->OpenRecordset()), QStringList({"JIN0001"}));
    // A read-only text is filtered as a whole.
    auto types = m_sound->OpenRecordset("SELECT DISTINCT Type FROM Cart");
    types->SetFilter("Type = 'C'");
    auto control = types->OpenRecordset();
    EXPECT_EQ(control->RecordCount(), 1);
}

TEST_P(RecordsetTest, AddsEditsCancelsAndDeletes)
{
    auto rs = m_sound->OpenRecordset("Cart");
    EXPECT_THROW(rs->Update(), KernelError);
    EXPECT_THROW(rs->CancelUpdate(), KernelError);
    EXPECT_THROW(rs->SetValue("Descripcio", "x"), KernelError);

    rs->AddNew();
    rs->SetValue("ID", "MES0001");
    rs->SetValue("Type", "M");
    EXPECT_EQ(rs->Text("ID"), "MES0001") << "the new row is read while it is written";
    rs->Update();
    EXPECT_EQ(rs->RecordCount(), 4);
    EXPECT_EQ(rs->Text("ID"), "MES0001");
    EXPECT_EQ(rs->Value("Time").toInt(), 0) << "the store's default is read back";
    EXPECT_EQ(StoredText(*m_other, "SELECT Type FROM Cart WHERE ID = 'MES0001'"), "M");

    // Edit writes only the fields that were set: another user's change to the others stays.
    rs->FindFirst("ID = 'JIN0001'");
    m_other->Execute("UPDATE Cart SET Comentari = 'from elsewhere' WHERE ID = 'JIN0001'");
    rs->Edit();
    rs->SetValue("Descripcio", "Renamed");
    rs->Update();
    EXPECT_EQ(rs->Text("Descripcio"), "Renamed");
    EXPECT_EQ(StoredText(*m_other, "SELECT Descripcio || '/' || Comentari FROM Cart WHERE ID = 'JIN0001'"),
              "Renamed/from elsewhere");

    rs->Edit();
    rs->SetValue("Descripcio", "Never stored");
    rs->CancelUpdate();
    EXPECT_EQ(rs->Text("Descripcio"), "Renamed");
    rs->Edit();
    rs->SetValue("Descripcio", "Dropped by the move");
    rs->MoveFirst();
    EXPECT_THROW(rs->Update(), KernelError);
    EXPECT_EQ(StoredText(*m_other, "SELECT Descripcio FROM Cart WHERE ID = 'JIN0001'"), "Renamed");

    // Delete: no current row until the next move, which reaches the row that followed.
    rs->FindFirst("ID = 'JIN0001'");
    rs->Delete();
    EXPECT_THROW(rs->Value("ID"), KernelError);
    EXPECT_THROW(rs->Delete(), KernelError);
    rs->MoveNext();
    EXPECT_EQ(rs->Text("ID"), "JIN0002");
    EXPECT_EQ(StoredText(*m_other, "SELECT COUNT(*) FROM Cart WHERE ID = 'JIN0001'"), "0");
    for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext())
        rs->Delete();
    EXPECT_EQ(rs->RecordCount(), 0);
    EXPECT_EQ(StoredText(*m_other, "SELECT COUNT(*) FROM Cart"), "0");
}

TEST_P(RecordsetTest, WritesTextTrimmedAndCutToItsSize)
{
    auto rs = m_sound->OpenRecordset("Cart");
    rs->AddNew();
    rs->SetValue("ID", "  JIN0009XYZ ");
    rs->SetValue("Descripcio", QString(300, 'd'));
    rs->SetValue("Type", "Sound");
    rs->SetValue("Comentari", QVariant());
    rs->Update();
    EXPECT_EQ(rs->Text("ID"), "JIN0009");
    EXPECT_EQ(rs->Text("Descripcio").size(), 255);
    EXPECT_EQ(rs->Text("Type"), "S");
    EXPECT_EQ(StoredText(*m_other, "SELECT length(Descripcio) FROM Cart WHERE ID = 'JIN0009'"), "255");

    // Null guard: a Null text reads as empty through Text(), and stays Null as a value.
    EXPECT_TRUE(rs->Value("Comentari").isNull());
    EXPECT_EQ(rs->Text("Comentari"), "");

    // A family ID of fewer letters is stored as typed.
    auto families = m_user->OpenRecordset("Familia");
    families->AddNew();
    families->SetValue("ID", "AB");
    families->SetValue("Tothom", true);
    families->Update();
    EXPECT_EQ(families->Text("ID"), "AB");
    EXPECT_EQ(families->Value("Tothom"), QVariant(true));
}

TEST_P(RecordsetTest, KeepsDatesAndNumbersAsTheirKinds)
{
    const QDateTime start(QDate(2001, 1, 1), QTime(0, 0));
    std::unique_ptr<Recordset> rs = m_sound->OpenRecordset("SELECT * FROM Cart WHERE ID = 'JIN0001'");
    rs->Edit();
    rs->SetValue("StartDate", start);
    rs->SetValue("Time", 123456);
    rs->Update();
    EXPECT_EQ(rs->Value("StartDate").toDateTime(), start);
    EXPECT_EQ(rs->Value("Time"), QVariant(123456));
    rs->FindFirst("StartDate = #2001-01-01 00:00:00# AND Time > 1000");
    EXPECT_FALSE(rs->NoMatch());

    // A date bound straight to the driver compares like one written here.
    QSqlQuery direct(m_other->Connection());
    direct.prepare("UPDATE Cart SET StartDate = ? WHERE ID = 'JIN0002'");
    direct.addBindValue(QDateTime(QDate(2002, 2, 2), QTime(12, 30)));
    ASSERT_TRUE(direct.exec());
    rs = m_sound->OpenRecordset("Cart");
    rs->FindFirst("StartDate = #2/2/2002 12:30#");
    EXPECT_EQ(rs->Text("ID"), "JIN0002");

    // A date written as SQLite's own functions write it reads as a date too.
    m_other->Execute("UPDATE Cart SET StopDate = '2099-01-01 00:00:00' WHERE ID = 'JIN0002'");
    rs->Requery();
    rs->FindFirst("ID = 'JIN0002'");
    EXPECT_EQ(rs->Value("StopDate").toDateTime(), QDateTime(QDate(2099, 1, 1), QTime(0, 0)));
}

TEST_P(RecordsetTest, RequerySeesOtherConnectionsAndReturnsToTheFirstRow)
{
    auto rs = m_sound->OpenRecordset("Cart");
    rs->MoveLast();
    m_other->Execute("INSERT INTO Cart (ID, Type) VALUES ('AAA0001', 'C')");
    EXPECT_EQ(rs->RecordCount(), 3) << "rows stay as fetched until the requery";
    rs->Requery();
    EXPECT_EQ(rs->RecordCount(), 4);
    EXPECT_EQ(rs->Text("ID"), "AAA0001");

    rs->MoveLast();
    rs->Requery();
    EXPECT_EQ(rs->Text("ID"), "AAA0001") << "a requery with no change also returns to the first row";

    m_sound->Execute("DELETE FROM Cart WHERE ID = 'AAA0001'");
    rs->Requery();
    EXPECT_EQ(Ids(*rs), QStringList({"CON0003", "JIN0001", "JIN0002"}));
}

TEST_P(RecordsetTest, ReadOnlySourcesRefuseWrites)
{
    m_sound->Execute("INSERT INTO Sound (ID, Filename) VALUES ('JIN0001', 'a.wav')");
    m_sound->ExecuteNative("CREATE VIEW SoundCarts AS SELECT Cart.ID, Filename FROM Cart JOIN Sound ON Cart.ID = Sound.ID");
    const QStringList sources{
        "SELECT DISTINCT Type FROM Cart",
        "SELECT Cart.ID, Sound.Filename FROM Cart, Sound WHERE Cart.ID = Sound.ID",
        "SELECT Cart.ID FROM Cart INNER JOIN Sound ON Cart.ID = Sound.ID",
        "SELECT COUNT(*) FROM Cart",
        "SELECT Type, COUNT(*) FROM Cart GROUP BY Type",
        "SoundCarts",
    };
    for (const QString& source : sources) {
        SCOPED_TRACE(source.toStdString());
        auto rs = m_sound->OpenRecordset(source);
        EXPECT_FALSE(rs->Updatable());
        EXPECT_GT(rs->RecordCount(), 0);
        EXPECT_THROW(rs->AddNew(), KernelError);
        EXPECT_THROW(rs->Edit(), KernelError);
        EXPECT_THROW(rs->Delete(), KernelError);
    }
    EXPECT_THROW(m_sound->OpenRecordset("DELETE FROM Cart"), KernelError);
    EXPECT_THROW(m_sound->OpenRecordset("NoSuchTable"), KernelError);
    EXPECT_EQ(StoredText(*m_sound, "SELECT COUNT(*) FROM Cart"), "3");
}

TEST_P(RecordsetTest, HoldsALargeTableCompactly)
{
    m_sound->Transaction([&] {
        QSqlQuery insert(m_sound->Connection());
        insert.prepare("INSERT INTO Cart (ID, Descripcio, Comentari, Type, Time) VALUES (?, ?, ?, 'S', ?)");
        for (int i = 0; i < 20000; ++i) {
            insert.addBindValue(QString("B%1").arg(i, 6, 10, QChar('0')));
            insert.addBindValue(QString("Description of cart number %1").arg(i));
            insert.addBindValue(QString("Comment %1").arg(i));
            insert.addBindValue(i * 10);
            ASSERT_TRUE(insert.exec());
        }
    });
    auto rs = m_sound->OpenRecordset("Cart");
    EXPECT_EQ(rs->RecordCount(), 20003);
    // About the data itself (some 120 bytes a row as UTF-16), not a variant per cell.
    EXPECT_LT(rs->MemoryBytes(), 20003u * 300u);
    rs->FindFirst("ID = 'B019999'");
    EXPECT_EQ(rs->Value("Time"), QVariant(199990));
}

INSTANTIATE_TEST_SUITE_P(Engines, RecordsetTest, ::testing::Values(SqlDialect::Engine::SQLite, SqlDialect::Engine::PostgreSQL),
                         [](const auto& info) { return info.param == SqlDialect::Engine::SQLite ? "SQLite" : "PostgreSQL"; });
