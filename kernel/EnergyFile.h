#pragma once
#include <QByteArray>
#include <QString>

class AudioFileInfo;

// The energy file (".bef") of a sound: a 567-byte header and then one byte of energy per
// channel and step, interleaved by channel.
//
//   0    32 bytes   leading block: a signature
//   32   512 bytes  header text, Latin-1, padded with blanks
//   544  8 bytes    zero
//   552  int32 LE   size of the energy block + 12
//   556  int32 LE   channels
//   560  int32 LE   bytes per sample: 1
//   564  3 bytes    zero
//   567  energy block
//
// The energy block begins one byte before the next aligned offset: readers count positions
// from one and take the block from their position 568.
class EnergyFile
{
public:
    static constexpr int HeaderTextOffset = 32;
    static constexpr int HeaderTextSize = 512;
    static constexpr int SizeOffset = 552;
    static constexpr int ChannelsOffset = 556;
    static constexpr int BytesPerSampleOffset = 560;
    static constexpr int DataOffset = 567;
    // What the size field counts beyond the energy block.
    static constexpr int SizeExtra = 12;

    // The energy file of an audio file: the same name with the extension ".bef".
    static QString PathFor(const QString& audioPath);
    // The whole file for a decoded audio file.
    static QByteArray Bytes(const AudioFileInfo& info);
    // Writes the file so that a failure leaves an earlier file whole; throws KernelError.
    static void Write(const QString& path, const AudioFileInfo& info);
    // Decodes an audio file and writes its energy file beside it; returns what was measured.
    static AudioFileInfo WriteFor(const QString& audioPath);

private:
    static QByteArray HeaderText(const AudioFileInfo& info);
};
