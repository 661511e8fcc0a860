#pragma once
#include <QString>
#include <QStringList>

class Database;
class SqlDialect;

// The tables of the station's three databases, declared once and rendered for the engine of
// the database they are created in. Creating is idempotent: a table or index that exists is
// left as it is.
//
// - Sound (Sound.MDB): Cart, Sound, RMacro (RMacro's columns in this order, since rows are
//   inserted by position).
// - User (User.MDB): Usuari, Grup, RGrup, Familia, RFamilia, Client, Config.
// - Kernel: the stores Config and StationConfig, translations (Contents), Application,
//   playlists (PlayList, PlayListItem), the backups of sound marks (SoundBackup), the
//   properties of carts (CartProperties), the notices shouted to every workstation (Notice), and
//   the disc library: Filters, Jingles, Ads, Clocks, DiscInfoIDs, All, Sections,
//   CrossSections (a table the disc library fills, one column per property it filters on),
//   and local_/remote_ Discs, Tracks, Keywords, RecordCompanies, Supports.
//
// The kernel's connection reaches Cart, Sound, RMacro and the User tables unqualified: on
// SQLite it attaches Sound.MDB and User.MDB (Database::Attach); on a server the three live in
// schemas of one database and the kernel's search path holds the other two. Config exists
// in User and Kernel with the same columns, so that the three may also share one schema.
class CatalogueSchema
{
public:
    enum class Catalogue { Sound, User, Kernel };

    static void CreateSoundSchema(Database& db);
    static void CreateUserSchema(Database& db);
    static void CreateKernelSchema(Database& db);
    static void Create(Database& db, Catalogue catalogue);

    // A column's name as the catalogue spells it ("Descripcio"), for a store that keeps names
    // folded to lower case; the name as given when no catalogue table declares it.
    static QString DeclaredName(const QString& table, const QString& column);
    // The names of a catalogue's tables, in the order they are created.
    static QStringList TableNames(Catalogue catalogue);
    // The statements that Create runs, in order, for a dialect.
    static QStringList Statements(const SqlDialect& dialect, Catalogue catalogue);
};
