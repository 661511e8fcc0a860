#include "tools/BulkCatalogue.h"
#include "foundation/db/Database.h"
#include "kernelapi/KernelError.h"
#include "tools/AudioGenerator.h"
#include "tools/StationReport.h"
#include "tools/TableWriter.h"
#include <QDir>
#include <QStringList>
#include <iterator>

namespace {
using Shape = SoundRecipe::Shape;

const QString SharedFolder = QStringLiteral("bench/");

// Words for titles, so that searches over the benchmark catalogue find varied subsets.
const char* const Adjectives[] = {"Amber", "Blue", "Bright", "Calm", "Crimson", "Dark", "Distant", "Early",
                                  "Electric", "Golden", "Green", "Hidden", "Late", "Lonely", "Lost", "Midnight",
                                  "Morning", "Northern", "Quiet", "Rainy", "Red", "Silent", "Silver", "Slow",
                                  "Southern", "Summer", "Sweet", "Velvet", "Warm", "White", "Wild", "Winter"};
const char* const Nouns[] = {"Avenue", "Bells", "Bridge", "City", "Coast", "Dance", "Dream", "Echo",
                             "Fields", "Fire", "Garden", "Harbour", "Heart", "Highway", "Island", "Lights",
                             "Moon", "Mountain", "Night", "Ocean", "Radio", "Rain", "River", "Road",
                             "Shadow", "Sky", "Song", "Station", "Storm", "Street", "Sun", "Train"};

QString Title(int number)
{
    const int words = int(std::size(Nouns));
    return QStringLiteral("%1 %2 %3")
        .arg(QLatin1String(Adjectives[number % words]), QLatin1String(Nouns[number / words % words]))
        .arg(number);
}

QString CartID(const QString& family, int slot)
{
    return family + QString::number(slot).rightJustified(4, QLatin1Char('0'));
}
}

BulkCatalogue::BulkCatalogue(Database& soundDb, Database& userDb, const QString& soundDir, const AudioGenerator& audio)
    : m_soundDb(soundDb), m_userDb(userDb), m_soundDir(soundDir), m_audio(audio)
{
}

QString BulkCatalogue::FamilyID(int index)
{
    return QStringLiteral("B") + QChar(u'A' + index / 26 % 26) + QChar(u'A' + index % 26);
}

void BulkCatalogue::Write(int carts, StationReport& report)
{
    if (carts < 0 || carts > MaxCarts)
        throw KernelError(QStringLiteral("The number of benchmark carts must lie between 0 and %1").arg(MaxCarts));
    if (carts == 0)
        return;
    const QVector<SharedSound> sounds = WriteSharedSounds(report);
    WriteFamilies((carts + FamilySize - 1) / FamilySize, report);
    WriteCarts(carts, sounds, report);
}

QVector<BulkCatalogue::SharedSound> BulkCatalogue::WriteSharedSounds(StationReport& report) const
{
    if (!QDir().mkpath(m_soundDir + SharedFolder))
        throw KernelError(QStringLiteral("Cannot create the folder '%1'").arg(m_soundDir + SharedFolder));
    const SoundRecipe recipes[] = {{Shape::Tone, 4, 523.25, 901, AudioFormat::Wav16},
                                   {Shape::Melody, 6, 392, 902, AudioFormat::Flac},
                                   {Shape::Chord, 5, 293.66, 903, AudioFormat::Ogg},
                                   {Shape::NoiseBurst, 3, 1500, 904, AudioFormat::Wav24}};
    QVector<SharedSound> sounds;
    QVector<AudioGenerator::Job> jobs;
    for (const SoundRecipe& recipe : recipes) {
        const QString filename = SharedFolder + QStringLiteral("shared-%1%2").arg(sounds.size() + 1).arg(AudioGenerator::Extension(recipe.format));
        sounds.append({filename, 0});
        jobs.append({recipe, m_soundDir + filename});
    }
    const QVector<int> lengths = m_audio.WriteAll(jobs);
    for (int i = 0; i < sounds.size(); ++i)
        sounds[i].ms = lengths[i];
    report.soundFiles += int(sounds.size());
    return sounds;
}

void BulkCatalogue::WriteFamilies(int families, StationReport& report)
{
    m_userDb.Transaction([&] {
        TableWriter rows(m_userDb, QStringLiteral("Familia"),
                         {QStringLiteral("ID"), QStringLiteral("Descripcio"), QStringLiteral("Tothom")});
        for (int i = 0; i < families; ++i)
            rows.Add({FamilyID(i), QStringLiteral("Benchmark family %1").arg(i + 1), true});
    });
    for (int i = 0; i < families; ++i)
        report.families << FamilyID(i);
}

void BulkCatalogue::WriteCarts(int carts, const QVector<SharedSound>& sounds, StationReport& report)
{
    m_soundDb.Transaction([&] {
        TableWriter cartRows(m_soundDb, QStringLiteral("Cart"),
                             {QStringLiteral("ID"), QStringLiteral("Descripcio"), QStringLiteral("Comentari"),
                              QStringLiteral("Type"), QStringLiteral("Time")});
        TableWriter soundRows(m_soundDb, QStringLiteral("Sound"),
                              {QStringLiteral("ID"), QStringLiteral("Filename"), QStringLiteral("Start"), QStringLiteral("Stop"),
                               QStringLiteral("StartMark"), QStringLiteral("StopMark"), QStringLiteral("ClientID")});
        const QString type = QStringLiteral("S"), comment = QStringLiteral("Benchmark cart");
        for (int n = 0; n < carts; ++n) {
            const QString id = CartID(FamilyID(n / FamilySize), n % FamilySize);
            const SharedSound& sound = sounds[n % sounds.size()];
            cartRows.Add({id, Title(n), comment, type, sound.ms});
            soundRows.Add({id, sound.filename, 0, sound.ms, 0, sound.ms, QString()});
        }
    });
    report.bulkCarts += carts;
}
