#pragma once
#include <QString>
#include <QVector>

class AudioGenerator;
class Database;
struct StationReport;

// Benchmark carts: N sound carts in full families of 10,000 (slots 0000 to 9999), named BAA,
// BAB, ... up to BZZ, the last family partial when N is not a multiple. They share a few real
// audio files, so that every cart can be loaded and played. All rows go in one transaction
// through prepared statements.
class BulkCatalogue
{
public:
    static constexpr int FamilySize = 10000;
    static constexpr int MaxFamilies = 26 * 26;
    static constexpr int MaxCarts = FamilySize * MaxFamilies;

    BulkCatalogue(Database& soundDb, Database& userDb, const QString& soundDir, const AudioGenerator& audio);

    // Adds the carts; carts must lie in 0 to MaxCarts.
    void Write(int carts, StationReport& report);

    // The ID of the family with this 0-based number: 0 is BAA, 1 is BAB, 26 is BBA.
    static QString FamilyID(int index);

private:
    struct SharedSound
    {
        QString filename; // relative to the sound folder
        int ms;
    };

    QVector<SharedSound> WriteSharedSounds(StationReport& report) const;
    void WriteFamilies(int families, StationReport& report);
    void WriteCarts(int carts, const QVector<SharedSound>& sounds, StationReport& report);

    Database& m_soundDb;
    Database& m_userDb;
    QString m_soundDir;
    const AudioGenerator& m_audio;
};
