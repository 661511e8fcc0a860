#pragma once
#include "kernel/audio/PlaySource.h"
#include <QString>
#include <memory>

class iCart;

// One sound a player plays: the cart it comes from (none for a bare file), what of its file
// to play, the title to show, and whether it repeats by itself (a looped playlist row).
struct PlayStep
{
    std::shared_ptr<iCart> cart;
    PlaySource source;
    QString title;
    bool loop = false;
    int row = 0; // the playlist row it comes from; 0 elsewhere
};
