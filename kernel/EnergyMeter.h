#pragma once
#include <QVector>
#include <QtGlobal>
#include <vector>

class AudioFileInfo;

// Collects the energy of the steps of a decode while blocks of frames go by: the peak of each
// channel over each step, appended to the energy of an AudioFileInfo as bytes.
class EnergyMeter
{
public:
    // info gives the rate and channels; its energy receives the steps.
    explicit EnergyMeter(AudioFileInfo& info);

    // Interleaved 16-bit frames that follow the ones added before.
    void Add(const qint16* samples, qint64 frames);
    // Closes the last, partial step and returns the frames seen.
    qint64 Finish();
    // Each channel's peak over the closed steps, 0 to 1.
    QVector<double> Peaks() const;

private:
    // Raises peaks[c] to the largest magnitude of channel c in the frames.
    static void RaisePeaks(const qint16* samples, qint64 frames, int channels, int* peaks);
    void CloseStep();

    AudioFileInfo& m_info;
    std::vector<int> m_peaks;     // of the step under way
    std::vector<int> m_filePeaks; // of the steps closed
    qint64 m_step = 0;
    qint64 m_position = 0;
    qint64 m_stepEnd = 0;
};
