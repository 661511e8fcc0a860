#pragma once
#include <QString>
#include <QStringList>

// What a station creation made, for the summary the tool prints and for tests.
struct StationReport
{
    QString dir;
    QStringList families; // every family ID, demo and benchmark
    int demoCarts = 0;    // carts of the demo catalogue, all types
    int bulkCarts = 0;    // benchmark sound carts
    int users = 0;
    int groups = 0;
    int customers = 0;
    int soundFiles = 0;   // audio files written into sound/
    int translations = 0; // rows of Contents
};
