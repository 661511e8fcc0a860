#pragma once
#include "kernel/audio/PlaySource.h"
#include <cstdint>
#include <memory>
#include <sndfile.h>
#include <soxr.h>
#include <vector>

// Reads the stretch of a sound file between its marks as stereo float frames at the output
// rate: mono is doubled, channels beyond two are left out, and another rate is resampled with
// libsoxr. Runs on one thread at a time (a disk worker, or the UI thread on a virtual clock).
class SoundDecoder
{
public:
    // Opens the source to play from positionMs (ms of the file, held inside the marks).
    // Throws KernelError for a missing, unreadable or empty file, or marks that leave nothing.
    SoundDecoder(const PlaySource& source, int positionMs, int outputRate);
    SoundDecoder(const SoundDecoder&) = delete;
    SoundDecoder& operator=(const SoundDecoder&) = delete;

    // The marks in force, in ms of the file.
    int StartMs() const { return ToMs(m_startFrame); }
    int StopMs() const { return ToMs(m_stopFrame); }
    // Where reading began, in ms of the file.
    int OriginMs() const { return ToMs(m_originFrame); }
    // Whether the file holds less audio than its header announces.
    bool Truncated() const { return m_truncated; }
    // Whether reading stopped before the stop mark because the file failed.
    bool Failed() const { return m_failed; }

    // Writes up to frames stereo frames; fewer only at the end, 0 once everything was given.
    // loop: at the stop mark, go on from the start mark.
    int Read(float* stereo, int frames, bool loop);
    // Whether everything up to the stop mark was given and reading ended there.
    bool Finished() const { return m_finished; }
    // After the end: goes on from the start mark, as if it had looped there.
    void Resume();
    // The places where reading went back to the start mark, in frames at the output rate
    // counted from where reading began, oldest first; each is handed out once.
    bool TakeWrap(std::int64_t& outputFrame);

    // Called with the file's name before every block is read from a file: tests and
    // benchmarks make a reader slow with it. Null: none.
    using ReadHook = void (*)(const QString& fileName);
    static void SetReadHook(ReadHook hook);

private:
    using File = std::unique_ptr<SNDFILE, int (*)(SNDFILE*)>;
    using Resampler = std::unique_ptr<soxr, void (*)(soxr_t)>;

    File Open(const QString& fileName);
    void SetMarks(const PlaySource& source, int positionMs);
    void Seek(sf_count_t frame);
    // Frames at the file's rate.
    int Decode(float* stereo, int frames, bool loop);
    int Resample(float* stereo, int frames, bool loop);
    void ToStereo(int frames, float* stereo) const;
    sf_count_t ToFrame(int ms) const { return static_cast<sf_count_t>(ms) * m_info.samplerate / 1000; }
    int ToMs(sf_count_t frame) const { return static_cast<int>(frame * 1000 / m_info.samplerate); }
    void NoteWrap();

    QString m_fileName;
    SF_INFO m_info{};
    File m_file;
    Resampler m_resampler;
    sf_count_t m_startFrame = 0;
    sf_count_t m_stopFrame = 0;
    sf_count_t m_originFrame = 0;
    sf_count_t m_frame = 0;
    sf_count_t m_fileFramesRead = 0; // since reading began, over every pass
    double m_outputPerFileFrame = 1;
    std::vector<std::int64_t> m_wraps;
    std::size_t m_wrapsTaken = 0;
    std::vector<float> m_fileFrames; // one block as the file holds it
    std::vector<float> m_input;      // decoded stereo waiting for the resampler
    std::size_t m_inputOffset = 0;
    std::size_t m_inputCount = 0;
    bool m_inputEnded = false;
    bool m_finished = false;
    bool m_truncated = false;
    bool m_failed = false;
};
