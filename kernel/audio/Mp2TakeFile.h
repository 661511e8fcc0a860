#pragma once
#include "kernel/audio/TakeFile.h"
#include <QFile>
#include <vector>

struct twolame_options_struct;

// A take as MPEG-1 Layer II, encoded with libtwolame. The format has no header to keep up to
// date: every frame written is playable, so a file left by a killed process holds what was
// encoded up to then.
class Mp2TakeFile : public TakeFile
{
public:
    Mp2TakeFile(const QString& path, int channels, int sampleRate, int bitRateKbps);
    ~Mp2TakeFile() override;

    void Write(const qint16* frames, qint64 count) override;
    void Close() override;

private:
    void Put(int bytes);

    QFile m_file;
    twolame_options_struct* m_encoder = nullptr;
    std::vector<unsigned char> m_mpeg;
};
