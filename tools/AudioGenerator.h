#pragma once
#include "tools/SoundRecipe.h"
#include "tools/StationOptions.h"
#include <QString>
#include <QVector>
#include <utility>

// Synthesises stereo sounds from recipes and writes them with libsndfile in the recipe's
// format. Every sound starts and ends with a short ramp, so it never clicks, and peaks a
// little below full scale.
class AudioGenerator
{
public:
    explicit AudioGenerator(SoundLength length = SoundLength::Full);

    // Writes the sound to path and returns its length in milliseconds (always a multiple of
    // 10, so that the length is a whole number of frames at 44.1 and 48 kHz). Throws
    // KernelError when the file cannot be written.
    int Write(const SoundRecipe& recipe, const QString& path) const;

    using Job = std::pair<SoundRecipe, QString>; // recipe, path
    // Writes several sounds on all processor cores; the lengths come back in the order of the
    // jobs. The first failure is thrown once every worker has stopped.
    QVector<int> WriteAll(const QVector<Job>& jobs) const;

    // The file name extension of a format, with the dot.
    static QString Extension(AudioFormat format);
    static int SampleRate(AudioFormat format);

private:
    // The length in milliseconds that a recipe gets under this generator's sound length.
    int LengthMs(const SoundRecipe& recipe) const;

    SoundLength m_length;
};
