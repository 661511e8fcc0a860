#pragma once
#include <QHash>
#include <QString>

class AudioGenerator;
class Database;
struct StationReport;

// The demo catalogue of a new station: users (an administrator and a presenter, each with a
// private group), working groups, families with rights, customers, sound carts with their
// generated audio, control carts and macros that mix both.
class DemoCatalogue
{
public:
    // The demo logins, printed by the tool.
    static const QString AdminID;
    static const QString AdminPassword;
    static const QString PresenterID;
    static const QString PresenterPassword;

    DemoCatalogue(Database& soundDb, Database& userDb, const QString& soundDir, const AudioGenerator& audio);

    void Write(StationReport& report);

private:
    // The writers run inside transactions that may be run again, so they leave the report alone.
    void WriteUsers();
    void WriteGroups();
    void WriteFamilies();
    void WriteCustomers();
    void GenerateSounds();
    void WriteCarts();
    void Count(StationReport& report) const;
    // Playing length of a macro: the sum of its sound steps.
    int MacroLength(const QStringList& steps) const;

    Database& m_soundDb;
    Database& m_userDb;
    QString m_soundDir;
    const AudioGenerator& m_audio;
    QHash<QString, int> m_lengths; // ms of each generated sound cart
};
