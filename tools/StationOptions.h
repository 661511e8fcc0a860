#pragma once
#include <QString>

// How long the generated demo sounds are: Full makes real programme material (3 to 30 seconds
// each); Short makes the same distinct sounds 0.1 to 0.4 seconds long, for fixtures
// that create many stations.
enum class SoundLength { Full, Short };

// What `korvane-station create` is asked to make.
struct StationOptions
{
    QString dir;
    // Further sound carts for benchmarks, in families of 10,000.
    int carts = 0;
    // Where the catalogue lives; empty means SQLite files in <station>/data/. A postgresql://
    // URI names the station's schemas on a server, reached as a role that may make them.
    QString database;
    // On a server: the URI the workstation uses, written into kernel.ini; its role is given
    // the row rights on the station's schemas. Empty: the workstation uses database.
    QString workstation;
    SoundLength soundLength = SoundLength::Full;
};
