// Persisted control properties in the station's settings file.
#include "foundation/Globals.h"
#include "foundation/StationSettings.h"
#include "kernel/EmbeddedKernel.h"
#include "support/TempStation.h"
#include <QFile>
#include <gtest/gtest.h>

TEST(StationSettings, ValuesAreKeptPerControlBesideTheStationFile)
{
    EXPECT_TRUE(StationSettings::File().isEmpty()) << "no kernel, no station";
    EXPECT_TRUE(StationSettings::ReadFlag(QStringLiteral("Deck"), QStringLiteral("TriplePlayMode"), true));
    EXPECT_FALSE(StationSettings::WriteFlag(QStringLiteral("Deck"), QStringLiteral("TriplePlayMode"), true));

    TempStation station;
    Globals::SetKernel(EmbeddedKernel::Open(station.Folder(), nullptr));
    EXPECT_EQ(StationSettings::File(), station.Dir() + QStringLiteral("settings.ini"));
    EXPECT_FALSE(StationSettings::ReadFlag(QStringLiteral("IFCartPlayer1"), QStringLiteral("TriplePlayMode"), false));
    EXPECT_TRUE(StationSettings::WriteFlag(QStringLiteral("IFCartPlayer1"), QStringLiteral("TriplePlayMode"), true));
    EXPECT_TRUE(StationSettings::WriteFlag(QStringLiteral("IFCartPlayer2"), QStringLiteral("TriplePlayMode"), false));
    EXPECT_TRUE(StationSettings::ReadFlag(QStringLiteral("IFCartPlayer1"), QStringLiteral("TriplePlayMode"), false));
    EXPECT_FALSE(StationSettings::ReadFlag(QStringLiteral("IFCartPlayer2"), QStringLiteral("TriplePlayMode"), true));

    // A hand-edited value that is no flag reads as the default.
    EXPECT_TRUE(StationSettings::Write(QStringLiteral("IFCartPlayer2"), QStringLiteral("TriplePlayMode"), QStringLiteral("maybe")));
    EXPECT_TRUE(StationSettings::ReadFlag(QStringLiteral("IFCartPlayer2"), QStringLiteral("TriplePlayMode"), true));
    EXPECT_EQ(StationSettings::Read(QStringLiteral("Nobody"), QStringLiteral("Nothing"), QStringLiteral("dflt")), QStringLiteral("dflt"));
    Globals::SetKernel(nullptr);
}
