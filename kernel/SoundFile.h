#pragma once
#include "kernelapi/iSoundFile.h"
#include <optional>

// The audio file behind a sound and its energy file, "<name>.bef" beside it. The length is
// read from the file's header on first use and kept. Energy is always read from the energy
// file, for compressed formats too, so IsCompressedFrames is false for every file.
class SoundFile : public iSoundFile
{
    Q_OBJECT
public:
    explicit SoundFile(const QString& path, QObject* parent = nullptr);

    QString FileName() const override { return m_path; }
    // Throws KernelError when the file is missing or cannot be read as audio.
    qint32 Length() const override;
    void Normalize(const QVariant& target, bool keepUndo) override;
    void RewriteFile(const QVariant& format, bool keepUndo, const QVariant& quality) override;
    bool IsCompressedFrames() const override { return false; }
    EnergyFile GetEnergyFile() const override;

    // Measures the file again and writes its energy file. accurate decodes every frame, takes
    // the counted length and always writes; otherwise the energy file is written only when it
    // is missing or older than the audio, and without that the header's length is taken.
    // Returns the length in ms; throws KernelError when the file cannot be read or written.
    qint32 Recalculate(bool accurate);
    // The same for any audio file, without an object: safe on any thread.
    static qint32 Measure(const QString& path, bool accurate);

private:
    static bool EnergyFileIsCurrent(const QString& path);

    QString m_path;
    mutable std::optional<qint32> m_length;
};
