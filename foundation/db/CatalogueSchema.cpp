#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "foundation/db/SqlDialect.h"
#include <algorithm>
#include <vector>

namespace {
using Kind = iRecordset::FieldType;

struct Column
{
    const char* name;
    Kind kind;
    int size = 0;            // declared size of a text; 0 for a long text
    const char* tail = "";   // NOT NULL, DEFAULT ...
    bool autoNumber = false; // an integer key numbered by the engine
};

struct Table
{
    QString name;
    std::vector<Column> columns;
    QStringList key;
    std::vector<QStringList> indexes;
};

Column Text(const char* name, int size, const char* tail = "")
{
    return {name, Kind::Text, size, tail};
}

Column Integer(const char* name, const char* tail = "")
{
    return {name, Kind::Integer, 0, tail};
}

Column Boolean(const char* name)
{
    return {name, Kind::Boolean, 0, "DEFAULT FALSE"};
}

Column Date(const char* name, const char* tail = "")
{
    return {name, Kind::DateTime, 0, tail};
}

Column AutoNumber(const char* name)
{
    return {name, Kind::Integer, 0, "", true};
}

std::vector<Table> SoundTables()
{
    return {
        {"Cart",
         {Text("ID", 7, "NOT NULL"), Text("Descripcio", 255), Text("Comentari", 255), Text("Type", 1), Date("StartDate"),
          Date("StopDate"), Integer("Time", "NOT NULL DEFAULT 0")},
         {"ID"},
         {}},
        {"Sound",
         {Text("ID", 7, "NOT NULL"), Text("Filename", 255), Integer("Start", "DEFAULT 0"), Integer("Stop", "DEFAULT 0"),
          Integer("StartMark", "DEFAULT 0"), Integer("StopMark", "DEFAULT 0"), Text("ClientID", 10)},
         {"ID"},
         {{"ClientID"}}},
        {"RMacro", {Text("MacroID", 7, "NOT NULL"), Integer("Index"), Text("SoundID", 7)}, {}, {{"MacroID", "Index"}, {"SoundID"}}},
    };
}

Table ConfigTable()
{
    return {"Config", {Text("ID", 50, "NOT NULL"), Text("Value", 255), Text("Description", 255)}, {"ID"}, {}};
}

std::vector<Table> UserTables()
{
    return {
        {"Usuari",
         {Text("ID", 20, "NOT NULL"), Text("Nom", 50), Text("Telefon", 20), Text("DefaultSnd", 50), Text("Password", 10),
          Integer("Privilege", "DEFAULT 0"), Text("LastDate", 10), Integer("Fails", "DEFAULT 0")},
         {"ID"},
         {}},
        {"Grup", {Text("ID", 20, "NOT NULL"), Text("Descripcio", 50)}, {"ID"}, {}},
        {"RGrup", {Text("GrupID", 20), Text("UserID", 20)}, {}, {{"GrupID"}, {"UserID"}}},
        {"Familia", {Text("ID", 3, "NOT NULL"), Text("Descripcio", 50), Boolean("Tothom")}, {"ID"}, {}},
        {"RFamilia", {Text("GrupID", 20), Text("familia", 3), Boolean("Write")}, {}, {{"GrupID"}, {"familia"}}},
        {"Client",
         {Text("ID", 10, "NOT NULL"), Text("Nom", 50), Text("Contacte", 50), Text("Adreca", 100), Text("CP", 10),
          Text("Localitat", 50), Text("Provincia", 50), Text("Telefon", 20), Text("Fax", 20), Text("CIF", 20),
          Text("Email", 100), Text("Web", 100)},
         {"ID"},
         {}},
        ConfigTable(),
    };
}

// A list of one programme (jingles, ads, clocks), read in Index order.
Table ProgrammeList(const char* name)
{
    return {name, {Text("ProgramName", 50, "NOT NULL"), Integer("Index", "NOT NULL"), Text("Definition", 0)},
            {"ProgramName", "Index"}, {}};
}

// A disc property list: one row per property.
Table PropertyList(const char* name)
{
    return {name, {Text("ID", 50, "NOT NULL"), Text("Property", 50), Text("Value", 255)}, {}, {{"ID", "Property"}, {"Property"}}};
}

// The filing columns that a transfer between the local and the remote catalogue leaves out.
std::vector<Column> Filing(std::vector<Column> columns)
{
    columns.push_back(Date("FILED", "DEFAULT CURRENT_TIMESTAMP"));
    columns.push_back(Text("FILER_EMAIL", 100));
    columns.push_back(Boolean("APPROVED"));
    return columns;
}

// The disc catalogue; the local_ and remote_ copies have the same shape.
std::vector<Table> DiscCatalogue(const QString& prefix)
{
    const std::vector<QStringList> byDisc{{"DiscID"}};
    return {
        {prefix + "Discs",
         Filing({AutoNumber("ID"), Text("DiscID", 50), Text("Title", 255), Text("Artist", 255), Text("RecordCompany", 100),
                 Integer("Year")}),
         {},
         byDisc},
        {prefix + "Tracks",
         Filing({AutoNumber("ID"), Text("DiscID", 50), Integer("Number"), Text("Title", 255), Text("Artist", 255),
                 Integer("Length")}),
         {},
         byDisc},
        {prefix + "Keywords", Filing({AutoNumber("ID"), Text("DiscID", 50), Text("Keyword", 50)}), {}, byDisc},
        {prefix + "RecordCompanies", Filing({AutoNumber("ID"), Text("Name", 100), Text("Country", 50)}), {}, {}},
        {prefix + "Supports", Filing({AutoNumber("ID"), Text("DiscID", 50), Text("Kind", 20), Text("Location", 50)}), {},
         byDisc},
    };
}

std::vector<Table> KernelTables()
{
    std::vector<Table> tables{
        ConfigTable(),
        {"StationConfig", {Text("Station", 50, "NOT NULL"), Text("ID", 50, "NOT NULL"), Text("Value", 255)}, {"Station", "ID"}, {}},
        {"Contents", {Text("Original", 255, "NOT NULL"), Text("Language", 20, "NOT NULL"), Text("Translation", 255)},
         {"Original", "Language"}, {}},
        {"Application", {Text("Name", 50), Text("Version", 20), Text("OpenText", 50), Text("ClosedText", 50)}, {}, {}},
        // The marks of a sound as they were before an edit, for the sound's Restore.
        {"SoundBackup",
         {Text("ID", 7, "NOT NULL"), Integer("Start", "DEFAULT 0"), Integer("Stop", "DEFAULT 0"),
          Integer("StartMark", "DEFAULT 0"), Integer("StopMark", "DEFAULT 0")},
         {"ID"},
         {}},
        // The named properties of a cart (a player's default volume among them), as JSON text.
        {"CartProperties", {Text("ID", 7, "NOT NULL"), Text("Properties", 0)}, {"ID"}, {}},
        // Playlists: the lists of the station and their rows, in Index order.
        {"PlayList",
         {Text("ID", 10, "NOT NULL"), Text("Name", 50), Text("Description", 255), Text("MacroID", 7), Boolean("Chained"),
          Boolean("AutoClose"), Boolean("Modified"), Integer("NextIndex", "DEFAULT 1"), Integer("Version", "DEFAULT 0")},
         {"ID"},
         {}},
        {"PlayListItem",
         {Text("PlayListID", 10, "NOT NULL"), Integer("Index", "NOT NULL"), Text("CartID", 7), Boolean("Ignored"),
          Boolean("Looped"), Boolean("Modified"), Text("Properties", 0)},
         {"PlayListID", "Index"},
         {}},
        // Notices shouted to every workstation of the station, read by each kernel's watcher.
        {"Notice", {AutoNumber("ID"), Text("Station", 50), Text("UserName", 50), Text("Text", 255), Date("Sent")}, {}, {}},
        {"Filters",
         {Text("ProgramName", 50, "NOT NULL"), Text("FilterName", 50, "NOT NULL"), Text("WhereClause", 0),
          Text("OrderByClause", 0)},
         {"ProgramName", "FilterName"},
         {}},
        ProgrammeList("Jingles"),
        ProgrammeList("Ads"),
        ProgrammeList("Clocks"),
        {"DiscInfoIDs", {Text("ID", 50, "NOT NULL")}, {"ID"}, {}},
        PropertyList("All"),
        PropertyList("Sections"),
        {"CrossSections",
         {Text("SectionID", 50, "NOT NULL"), Text("DiscID", 50), Text("Title", 255), Text("Artist", 255), Text("Genre", 50)},
         {"SectionID"},
         {{"DiscID"}}},
    };
    for (const QString& prefix : {QStringLiteral("local_"), QStringLiteral("remote_")}) {
        for (Table& table : DiscCatalogue(prefix))
            tables.push_back(std::move(table));
    }
    return tables;
}

std::vector<Table> TablesOf(CatalogueSchema::Catalogue catalogue)
{
    switch (catalogue) {
    case CatalogueSchema::Catalogue::Sound:
        return SoundTables();
    case CatalogueSchema::Catalogue::User:
        return UserTables();
    case CatalogueSchema::Catalogue::Kernel:
        break;
    }
    return KernelTables();
}

QString QuotedList(const SqlDialect& dialect, const QStringList& names)
{
    QStringList quoted;
    for (const QString& name : names)
        quoted << dialect.QuoteIdentifier(name);
    return quoted.join(QStringLiteral(", "));
}

QString ColumnDefinition(const SqlDialect& dialect, const Column& column)
{
    QString definition = dialect.QuoteIdentifier(QString::fromLatin1(column.name)) + u' '
                         + dialect.ColumnType(column.kind, column.size, column.autoNumber);
    if (*column.tail)
        definition += u' ' + QString::fromLatin1(column.tail);
    return definition;
}

QString CreateTable(const SqlDialect& dialect, const Table& table)
{
    QStringList parts;
    for (const Column& column : table.columns)
        parts << ColumnDefinition(dialect, column);
    if (!table.key.isEmpty())
        parts << QStringLiteral("PRIMARY KEY (%1)").arg(QuotedList(dialect, table.key));
    return QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (%2)")
        .arg(dialect.QuoteIdentifier(table.name), parts.join(QStringLiteral(", ")));
}

QString CreateIndex(const SqlDialect& dialect, const Table& table, const QStringList& columns)
{
    const QString name = table.name + u'_' + columns.join(u'_');
    return QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (%3)")
        .arg(dialect.QuoteIdentifier(name), dialect.QuoteIdentifier(table.name), QuotedList(dialect, columns));
}

QVector<int> TextSizes(const std::vector<Table>& tables)
{
    QVector<int> sizes;
    for (const Table& table : tables) {
        for (const Column& column : table.columns) {
            if (column.kind == Kind::Text && column.size > 0 && !sizes.contains(column.size))
                sizes << column.size;
        }
    }
    std::sort(sizes.begin(), sizes.end());
    return sizes;
}
}

void CatalogueSchema::CreateSoundSchema(Database& db)
{
    Create(db, Catalogue::Sound);
}

void CatalogueSchema::CreateUserSchema(Database& db)
{
    Create(db, Catalogue::User);
}

void CatalogueSchema::CreateKernelSchema(Database& db)
{
    Create(db, Catalogue::Kernel);
}

void CatalogueSchema::Create(Database& db, Catalogue catalogue)
{
    const QStringList statements = Statements(db.Dialect(), catalogue);
    db.Transaction([&] {
        for (const QString& statement : statements)
            db.ExecuteNative(statement);
    });
}

QString CatalogueSchema::DeclaredName(const QString& table, const QString& column)
{
    for (Catalogue catalogue : {Catalogue::Sound, Catalogue::User, Catalogue::Kernel}) {
        for (const Table& declared : TablesOf(catalogue)) {
            if (declared.name.compare(table, Qt::CaseInsensitive) != 0)
                continue;
            for (const Column& candidate : declared.columns) {
                if (column.compare(QLatin1String(candidate.name), Qt::CaseInsensitive) == 0)
                    return QString::fromLatin1(candidate.name);
            }
        }
    }
    return column;
}

QStringList CatalogueSchema::TableNames(Catalogue catalogue)
{
    QStringList names;
    for (const Table& table : TablesOf(catalogue))
        names << table.name;
    return names;
}

QStringList CatalogueSchema::Statements(const SqlDialect& dialect, Catalogue catalogue)
{
    const std::vector<Table> tables = TablesOf(catalogue);
    QStringList statements = dialect.SchemaPreamble(TextSizes(tables));
    for (const Table& table : tables) {
        statements << CreateTable(dialect, table);
        for (const QStringList& index : table.indexes)
            statements << CreateIndex(dialect, table, index);
    }
    return statements;
}
