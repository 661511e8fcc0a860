#include "tools/DemoCatalogue.h"
#include "foundation/Strings.h"
#include "foundation/db/Database.h"
#include "tools/AudioGenerator.h"
#include "tools/StationReport.h"
#include "tools/TableWriter.h"
#include <QDate>
#include <QDateTime>
#include <QStringList>
#include <QVector>

const QString DemoCatalogue::AdminID = QStringLiteral("ADMIN");
const QString DemoCatalogue::AdminPassword = QStringLiteral("korvane");
const QString DemoCatalogue::PresenterID = QStringLiteral("PRESENTER");
const QString DemoCatalogue::PresenterPassword = QStringLiteral("onair");

namespace {
using Shape = SoundRecipe::Shape;

struct DemoUser
{
    QString id, name, phone, password;
    int privilege;
    QStringList groups; // working groups; the private group is added to these
};

struct DemoFamily
{
    QString id, description;
    bool everybody; // Tothom: readable by every user
};

struct DemoRight
{
    QString group;
    QString family;
    bool write;
};

struct DemoSound
{
    QString id, title, comment;
    SoundRecipe recipe;
    QString client;
};

struct DemoControl
{
    QString id, title;
};

struct DemoMacro
{
    QString id, title;
    QStringList steps;
};

QVector<DemoUser> Users()
{
    return {
        {DemoCatalogue::AdminID, QStringLiteral("Station Administrator"), QStringLiteral("972 000 100"),
         DemoCatalogue::AdminPassword, 1, {QStringLiteral("TECHNICS"), QStringLiteral("PRODUCTION")}},
        {DemoCatalogue::PresenterID, QStringLiteral("Núria Puig i Ferré"), QStringLiteral("972 000 101"),
         DemoCatalogue::PresenterPassword, 0, {QStringLiteral("PRESENTERS")}},
    };
}

// ID, Descripcio
QVector<QStringList> WorkingGroups()
{
    return {
        {QStringLiteral("TECHNICS"), QStringLiteral("Technical staff")},
        {QStringLiteral("PRESENTERS"), QStringLiteral("Presenters")},
        {QStringLiteral("PRODUCTION"), QStringLiteral("Production and advertising")},
    };
}

QVector<DemoFamily> Families()
{
    return {
        {QStringLiteral("JIN"), QStringLiteral("Jingles and station IDs"), true},
        {QStringLiteral("MUS"), QStringLiteral("Music"), true},
        {QStringLiteral("PUB"), QStringLiteral("Advertising"), false},
        {QStringLiteral("NEW"), QStringLiteral("News and beds"), true},
        {QStringLiteral("CON"), QStringLiteral("Control"), false},
        {QStringLiteral("PAU"), QStringLiteral("Live rules"), false},
        {QStringLiteral("ESP"), QStringLiteral("Special sounds"), true},
        {QStringLiteral("TMP"), QStringLiteral("Temporal sounds"), false},
        {QStringLiteral("MES"), QStringLiteral("Special macros"), false},
    };
}

// Technicians may change everything; presenters read most families and keep their own news
// and temporal sounds; production makes jingles, music and advertising.
QVector<DemoRight> Rights()
{
    QVector<DemoRight> rights;
    for (const DemoFamily& family : Families())
        rights.append({QStringLiteral("TECHNICS"), family.id, true});
    const auto add = [&](const char* group, const char* family, bool write) {
        rights.append({QString::fromLatin1(group), QString::fromLatin1(family), write});
    };
    add("PRESENTERS", "JIN", false);
    add("PRESENTERS", "MUS", false);
    add("PRESENTERS", "PUB", false);
    add("PRESENTERS", "NEW", true);
    add("PRESENTERS", "TMP", true);
    add("PRESENTERS", "PAU", false);
    add("PRESENTERS", "MES", false);
    add("PRODUCTION", "JIN", true);
    add("PRODUCTION", "MUS", true);
    add("PRODUCTION", "PUB", true);
    add("PRODUCTION", "NEW", false);
    return rights;
}

QVector<QStringList> Customers()
{
    // ID, Nom, Contacte, Adreca, CP, Localitat, Provincia, Telefon, Fax, CIF, Email, Web
    return {
        {QStringLiteral("CLI001"), QStringLiteral("Cafè de l'Estació"), QStringLiteral("Jordi Vidal"),
         QStringLiteral("Plaça de l'Estació, 3"), QStringLiteral("17001"), QStringLiteral("Girona"),
         QStringLiteral("Girona"), QStringLiteral("972 100 200"), QStringLiteral("972 100 201"),
         QStringLiteral("B17000001"), QStringLiteral("info@cafe-estacio.example"), QStringLiteral("https://cafe-estacio.example")},
        {QStringLiteral("CLI002"), QStringLiteral("Ferreteria Puig"), QStringLiteral("Montserrat Puig"),
         QStringLiteral("Carrer Major, 45"), QStringLiteral("08500"), QStringLiteral("Vic"), QStringLiteral("Barcelona"),
         QStringLiteral("938 300 400"), QStringLiteral("938 300 401"), QStringLiteral("B08000002"),
         QStringLiteral("botiga@ferreteria-puig.example"), QStringLiteral("https://ferreteria-puig.example")},
        {QStringLiteral("CLI003"), QStringLiteral("Muebles Añón S.L."), QStringLiteral("Íñigo Añón"),
         QStringLiteral("Avenida de la Constitución, 12"), QStringLiteral("46001"), QStringLiteral("València"),
         QStringLiteral("València"), QStringLiteral("963 500 600"), QStringLiteral("963 500 601"),
         QStringLiteral("B46000003"), QStringLiteral("ventas@muebles-anon.example"), QStringLiteral("https://muebles-anon.example")},
    };
}

// Every sound is different (shape, pitch, seed) and the five formats are all present.
QVector<DemoSound> Sounds()
{
    const QString none;
    return {
        {QStringLiteral("JIN0001"), QStringLiteral("Station ID \"Korvane FM\""), none, {Shape::Melody, 3.5, 660, 11, AudioFormat::Wav16}, none},
        {QStringLiteral("JIN0002"), QStringLiteral("Morning show sweeper"), none, {Shape::Sweep, 4, 330, 12, AudioFormat::Wav24}, none},
        {QStringLiteral("JIN0003"), QStringLiteral("Top of the hour"), none, {Shape::Chord, 5, 523.25, 13, AudioFormat::Flac}, none},
        {QStringLiteral("JIN0004"), QStringLiteral("Sintonia de les notícies"), none, {Shape::Melody, 6, 440, 23, AudioFormat::Ogg}, none},
        {QStringLiteral("MUS0001"), QStringLiteral("L'Hora del Jazz"), QStringLiteral("Late night programme theme"), {Shape::Melody, 28, 220, 101, AudioFormat::Flac}, none},
        {QStringLiteral("MUS0002"), QStringLiteral("Cançó d'estiu"), none, {Shape::Melody, 22, 294, 102, AudioFormat::Wav16}, none},
        {QStringLiteral("MUS0003"), QStringLiteral("Añoranza"), QStringLiteral("Slow chords, fades out"), {Shape::Chord, 25, 196, 103, AudioFormat::Ogg}, none},
        {QStringLiteral("MUS0004"), QStringLiteral("Blue Drone"), none, {Shape::Tone, 30, 110, 104, AudioFormat::Aiff}, none},
        {QStringLiteral("MUS0005"), QStringLiteral("Ràdio Nit"), none, {Shape::Melody, 18, 349.23, 105, AudioFormat::Wav24}, none},
        {QStringLiteral("PUB0001"), QStringLiteral("Cafè de l'Estació - spring offer"), QStringLiteral("Runs until the end of May"), {Shape::Chord, 12, 392, 201, AudioFormat::Wav16}, QStringLiteral("CLI001")},
        {QStringLiteral("PUB0002"), QStringLiteral("Ferreteria Puig - tools week"), none, {Shape::Melody, 15, 587.33, 202, AudioFormat::Aiff}, QStringLiteral("CLI002")},
        {QStringLiteral("PUB0003"), QStringLiteral("Muebles Añón - rebajas"), none, {Shape::Sweep, 10, 261.63, 203, AudioFormat::Flac}, QStringLiteral("CLI003")},
        {QStringLiteral("NEW0001"), QStringLiteral("News bed"), QStringLiteral("Under the headlines"), {Shape::Tone, 20, 146.83, 301, AudioFormat::Wav24}, none},
        {QStringLiteral("NEW0002"), QStringLiteral("Headlines stinger"), none, {Shape::NoiseBurst, 4, 800, 302, AudioFormat::Ogg}, none},
        {QStringLiteral("ESP0001"), QStringLiteral("Applause"), none, {Shape::NoiseBurst, 6, 2500, 401, AudioFormat::Wav16}, none},
        {QStringLiteral("ESP0002"), QStringLiteral("Time signal"), none, {Shape::Tone, 3, 1000, 402, AudioFormat::Aiff}, none},
        {QStringLiteral("ESP0003"), QStringLiteral("Whoosh"), none, {Shape::Sweep, 3, 180, 403, AudioFormat::Wav24}, none},
        {QStringLiteral("TMP0001"), QStringLiteral("Traffic report"), QStringLiteral("Valid this week only"), {Shape::Melody, 8, 392, 501, AudioFormat::Flac}, none},
        {QStringLiteral("TMP0002"), QStringLiteral("Weather update"), none, {Shape::Chord, 9, 329.63, 502, AudioFormat::Ogg}, none},
    };
}

QVector<DemoControl> Controls()
{
    return {
        {QStringLiteral("CON0001"), QStringLiteral("Stop the channel")},
        {QStringLiteral("CON0002"), QStringLiteral("Pause")},
        {QStringLiteral("CON0003"), QStringLiteral("Wait for the hour")},
        {QStringLiteral("CON0004"), QStringLiteral("Fade out")},
    };
}

// MES0000 is the fixed macro of the live matrix (DirAccessID).
QVector<DemoMacro> Macros()
{
    return {
        {QStringLiteral("MES0000"), QStringLiteral("Live matrix"),
         {QStringLiteral("ESP0001"), QStringLiteral("ESP0002"), QStringLiteral("ESP0003"), QStringLiteral("JIN0001"), QStringLiteral("JIN0002")}},
        {QStringLiteral("MES0001"), QStringLiteral("Top of the hour"),
         {QStringLiteral("CON0003"), QStringLiteral("JIN0001"), QStringLiteral("MUS0001")}},
        {QStringLiteral("MES0002"), QStringLiteral("News opening"),
         {QStringLiteral("JIN0004"), QStringLiteral("NEW0002"), QStringLiteral("NEW0001")}},
        {QStringLiteral("PAU0001"), QStringLiteral("Live rule: ad break"),
         {QStringLiteral("CON0002"), QStringLiteral("PUB0001"), QStringLiteral("PUB0002"), QStringLiteral("PUB0003"), QStringLiteral("JIN0002")}},
        {QStringLiteral("PAU0002"), QStringLiteral("Live rule: closing"),
         {QStringLiteral("CON0004"), QStringLiteral("JIN0003"), QStringLiteral("CON0001")}},
    };
}

// The one demo cart with dates of its own: valid from today for a week.
const QString ThisWeekOnly = QStringLiteral("TMP0001");

// The last connection as the user save routine stores it: the date part only.
QString LastDate()
{
    return QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"));
}

// Sound files are named after their cart, relative to the sound folder.
QString FileName(const DemoSound& sound)
{
    return sound.id + AudioGenerator::Extension(sound.recipe.format);
}

// Auxiliary marks a tenth of the length in from either end, on a 10 ms grid.
int StartMark(int ms) { return ms / 100 * 10; }
int StopMark(int ms) { return ms - StartMark(ms); }
}

DemoCatalogue::DemoCatalogue(Database& soundDb, Database& userDb, const QString& soundDir, const AudioGenerator& audio)
    : m_soundDb(soundDb), m_userDb(userDb), m_soundDir(soundDir), m_audio(audio)
{
}

void DemoCatalogue::Write(StationReport& report)
{
    m_userDb.Transaction([&] {
        WriteUsers();
        WriteGroups();
        WriteFamilies();
        WriteCustomers();
    });
    GenerateSounds();
    m_soundDb.Transaction([&] { WriteCarts(); });
    Count(report);
}

void DemoCatalogue::Count(StationReport& report) const
{
    for (const DemoFamily& family : Families())
        report.families << family.id;
    report.users += int(Users().size());
    report.groups += int(WorkingGroups().size() + Users().size());
    report.customers += int(Customers().size());
    report.demoCarts += int(Sounds().size() + Controls().size() + Macros().size());
    report.soundFiles += int(m_lengths.size());
}

void DemoCatalogue::WriteUsers()
{
    TableWriter users(m_userDb, QStringLiteral("Usuari"),
                      {QStringLiteral("ID"), QStringLiteral("Nom"), QStringLiteral("Telefon"), QStringLiteral("DefaultSnd"),
                       QStringLiteral("Password"), QStringLiteral("Privilege"), QStringLiteral("LastDate"), QStringLiteral("Fails")});
    TableWriter members(m_userDb, QStringLiteral("RGrup"), {QStringLiteral("GrupID"), QStringLiteral("UserID")});
    for (const DemoUser& user : Users()) {
        users.Add({user.id, user.name, user.phone, QString(), ScramblePassword(user.password), user.privilege, LastDate(), 0});
        for (const QString& group : user.groups + QStringList{user.id})
            members.Add({group, user.id});
    }
}

void DemoCatalogue::WriteGroups()
{
    TableWriter groups(m_userDb, QStringLiteral("Grup"), {QStringLiteral("ID"), QStringLiteral("Descripcio")});
    for (const QStringList& group : WorkingGroups())
        groups.Add({group[0], group[1]});
    // Every user owns a private group named after the user.
    for (const DemoUser& user : Users())
        groups.Add({user.id, QStringLiteral("Particular group of ") + user.name});
}

void DemoCatalogue::WriteFamilies()
{
    TableWriter families(m_userDb, QStringLiteral("Familia"),
                         {QStringLiteral("ID"), QStringLiteral("Descripcio"), QStringLiteral("Tothom")});
    for (const DemoFamily& family : Families())
        families.Add({family.id, family.description, family.everybody});
    TableWriter rights(m_userDb, QStringLiteral("RFamilia"),
                       {QStringLiteral("GrupID"), QStringLiteral("familia"), QStringLiteral("Write")});
    for (const DemoRight& right : Rights())
        rights.Add({right.group, right.family, right.write});
}

void DemoCatalogue::WriteCustomers()
{
    TableWriter customers(m_userDb, QStringLiteral("Client"),
                          {QStringLiteral("ID"), QStringLiteral("Nom"), QStringLiteral("Contacte"), QStringLiteral("Adreca"),
                           QStringLiteral("CP"), QStringLiteral("Localitat"), QStringLiteral("Provincia"), QStringLiteral("Telefon"),
                           QStringLiteral("Fax"), QStringLiteral("CIF"), QStringLiteral("Email"), QStringLiteral("Web")});
    for (const QStringList& customer : Customers())
        customers.Add(QVariantList(customer.cbegin(), customer.cend()));
}

void DemoCatalogue::GenerateSounds()
{
    const QVector<DemoSound> sounds = Sounds();
    QVector<AudioGenerator::Job> jobs;
    for (const DemoSound& sound : sounds)
        jobs.append({sound.recipe, m_soundDir + FileName(sound)});
    const QVector<int> lengths = m_audio.WriteAll(jobs);
    for (int i = 0; i < sounds.size(); ++i)
        m_lengths.insert(sounds[i].id, lengths[i]);
}

void DemoCatalogue::WriteCarts()
{
    TableWriter carts(m_soundDb, QStringLiteral("Cart"),
                      {QStringLiteral("ID"), QStringLiteral("Descripcio"), QStringLiteral("Comentari"), QStringLiteral("Type"),
                       QStringLiteral("StartDate"), QStringLiteral("StopDate"), QStringLiteral("Time")});
    TableWriter sounds(m_soundDb, QStringLiteral("Sound"),
                       {QStringLiteral("ID"), QStringLiteral("Filename"), QStringLiteral("Start"), QStringLiteral("Stop"),
                        QStringLiteral("StartMark"), QStringLiteral("StopMark"), QStringLiteral("ClientID")});
    TableWriter steps(m_soundDb, QStringLiteral("RMacro"),
                      {QStringLiteral("MacroID"), QStringLiteral("Index"), QStringLiteral("SoundID")});
    const QVariant always; // no dates: the cart is always valid
    const QDateTime today = QDate::currentDate().startOfDay();
    for (const DemoSound& sound : Sounds()) {
        const int ms = m_lengths.value(sound.id);
        const bool temporal = sound.id == ThisWeekOnly;
        carts.Add({sound.id, sound.title, sound.comment, QStringLiteral("S"), temporal ? QVariant(today) : always,
                   temporal ? QVariant(today.addDays(7)) : always, ms});
        sounds.Add({sound.id, FileName(sound), 0, ms, StartMark(ms),
                    StopMark(ms), sound.client});
    }
    for (const DemoControl& control : Controls())
        carts.Add({control.id, control.title, QString(), QStringLiteral("C"), always, always, 0});
    for (const DemoMacro& macro : Macros()) {
        carts.Add({macro.id, macro.title, QString(), QStringLiteral("M"), always, always, MacroLength(macro.steps)});
        for (int i = 0; i < macro.steps.size(); ++i)
            steps.Add({macro.id, i + 1, macro.steps[i]});
    }
}

int DemoCatalogue::MacroLength(const QStringList& steps) const
{
    int ms = 0;
    for (const QString& step : steps)
        ms += m_lengths.value(step); // control carts take no time
    return ms;
}
