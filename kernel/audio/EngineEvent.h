#pragma once
#include "kernel/audio/SpscRing.h"
#include <cstdint>

// What the audio callback or the disk thread tells the UI thread about one voice. Plain data,
// so that it crosses threads through a lock-free ring without allocating.
struct EngineEvent
{
    enum class Kind : std::uint8_t {
        Ended,      // the voice played its last frame (callback)
        Started,    // a voice chained behind another began to sound (callback)
        ReadFailed, // the file stopped giving audio before its end (disk thread)
    };

    Kind kind = Kind::Ended;
    int voice = 0;               // the engine's number of the voice
    std::uint32_t generation = 0; // which preparation of the voice the event is about
};

using EngineEvents = SpscRing<EngineEvent>;
