#pragma once
#include <QString>
#include <cstdint>

// The file formats the demo station carries, so that every reader path of the kernel is used.
enum class AudioFormat {
    Wav16, // WAV, 16-bit PCM, 44.1 kHz
    Wav24, // WAV, 24-bit PCM, 48 kHz
    Flac,  // FLAC, 16-bit, 44.1 kHz
    Ogg,   // Ogg Vorbis, 44.1 kHz
    Aiff   // AIFF, 16-bit PCM, 44.1 kHz
};

// How one generated sound is made. Two recipes that differ in shape, frequency or seed give
// audibly different sounds.
struct SoundRecipe
{
    enum class Shape {
        Tone,       // a held tone with vibrato and tremolo
        Chord,      // strummed triads that decay
        Sweep,      // a frequency sweep up and down that pans across
        NoiseBurst, // filtered noise hits at uneven intervals
        Melody      // a pentatonic tune over a bass line
    };

    Shape shape = Shape::Tone;
    double seconds = 3.0;   // length at full size
    double frequency = 440; // base pitch in Hz
    std::uint32_t seed = 1; // for the random parts (melody, noise)
    AudioFormat format = AudioFormat::Wav16;
};
