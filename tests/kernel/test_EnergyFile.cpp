#include "kernel/AudioFile.h"
#include "kernel/AudioFileInfo.h"
#include "kernel/EnergyData.h"
#include "kernel/EnergyFile.h"
#include "kernel/EnergyReader.h"
#include "kernel/EnergyScale.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/KernelFactory.h"
#include "tools/ToneFile.h"
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <cmath>
#include <gtest/gtest.h>

namespace {
qint32 Int32At(const QByteArray& bytes, int offset)
{
    return qFromLittleEndian<qint32>(bytes.constData() + offset);
}

// An energy file made by hand: the header fields as given and the energy bytes after them.
QByteArray Handmade(qint32 size, qint32 channels, qint32 width, const QByteArray& energy)
{
    QByteArray bytes(EnergyFile::DataOffset, '\0');
    qToLittleEndian<qint32>(size, bytes.data() + EnergyFile::SizeOffset);
    qToLittleEndian<qint32>(channels, bytes.data() + EnergyFile::ChannelsOffset);
    qToLittleEndian<qint32>(width, bytes.data() + EnergyFile::BytesPerSampleOffset);
    return bytes + energy;
}

QByteArray WellFormed(qint32 channels, const QByteArray& energy)
{
    return Handmade(qint32(energy.size()) + EnergyFile::SizeExtra, channels, 1, energy);
}

class EnergyFileTest : public ::testing::Test
{
protected:
    QString Path(const QString& name) const { return dir.filePath(name); }

    QString WriteTone(const QString& name, const ToneFile& tone) const
    {
        tone.Write(Path(name));
        return Path(name);
    }

    QString WriteBytes(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return Path(name);
    }

    QTemporaryDir dir;
};
}

TEST_F(EnergyFileTest, LayoutPutsTheFieldsAtTheirOffsetsAndTheEnergyOneByteEarly)
{
    const QString wav = WriteTone("tone.wav", {ToneFile::Format::Wav16, 44100, 2, 1000, 440, 0.5});
    const AudioFileInfo info = EnergyFile::WriteFor(wav);
    QFile file(EnergyFile::PathFor(wav));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();

    EXPECT_EQ(EnergyFile::PathFor(wav), Path("tone.bef"));
    ASSERT_EQ(info.energy.size(), 100 * 2); // 10 ms steps, two channels
    EXPECT_EQ(bytes.size(), 567 + 200);
    EXPECT_EQ(Int32At(bytes, 552), 200 + 12);
    EXPECT_EQ(Int32At(bytes, 556), 2);
    EXPECT_EQ(Int32At(bytes, 560), 1);
    EXPECT_EQ(bytes.mid(564, 3), QByteArray(3, '\0'));
    EXPECT_EQ(bytes.mid(567), info.energy);
    const QString header = QString::fromLatin1(bytes.mid(32, 512));
    EXPECT_TRUE(header.startsWith("Korvane energy; step_ms=10; rate=44100; channels=2; frames=44100")) << header.toStdString();
    EXPECT_EQ(header.size(), 512);
    EnergyReader reader;
    reader.SetFileName(EnergyFile::PathFor(wav));
    EXPECT_EQ(reader.HeaderText(), header.trimmed());
    EXPECT_EQ(reader.FileName(), EnergyFile::PathFor(wav));

    // A steady sine at half scale: every step holds half of 127 in both channels.
    for (int i = 0; i < info.energy.size(); ++i)
        EXPECT_NEAR(quint8(info.energy[i]), 63.5, 0.5) << "byte " << i;
    EXPECT_NEAR(info.Peak(), 0.5, 0.001);
}

TEST_F(EnergyFileTest, ReaderGivesBackWhatWasWritten)
{
    // Ten 10-ms steps of a mono sine at full scale.
    const QString wav = WriteTone("mono.wav", {ToneFile::Format::Wav16, 48000, 1, 100, 1000, 1.0});
    const AudioFileInfo info = EnergyFile::WriteFor(wav);
    const std::shared_ptr<iEnergyReader> reader = KernelFactory::CreateEnergyReader();
    reader->SetFileName(EnergyFile::PathFor(wav));
    ASSERT_EQ(reader->howManySamples(), 10);
    for (int n = 0; n < 10; ++n) {
        const iEnergyReader::Sample sample = reader->getSampleN(n);
        EXPECT_FLOAT_EQ(sample.left, float(EnergyScale::Value(quint8(info.energy[n])))) << n;
        EXPECT_EQ(sample.right, 0.0f) << "one channel leaves right alone";
    }
    EXPECT_FLOAT_EQ(reader->getSampleN(0).left, 1.0f);
    EXPECT_EQ(reader->getSampleN(10).left, 0.0f);
    EXPECT_EQ(reader->getSampleN(-1).left, 0.0f);

    reader->SetFileName(QString());
    EXPECT_EQ(reader->howManySamples(), 0);
    EXPECT_EQ(reader->getSampleN(0).left, 0.0f);
}

TEST_F(EnergyFileTest, ByteScaleIsLogarithmicAndTheUpperHalfIsSilence)
{
    const EnergyData data = EnergyData::Parse(WellFormed(2, QByteArray::fromHex("007f80ff3f10")), "scale");
    ASSERT_EQ(data.Samples(), 3);
    EXPECT_EQ(data.SampleN(0).left, 0.0f);
    EXPECT_FLOAT_EQ(data.SampleN(0).right, 1.0f);
    EXPECT_EQ(data.SampleN(1).left, 0.0f);
    EXPECT_EQ(data.SampleN(1).right, 0.0f);
    EXPECT_FLOAT_EQ(data.SampleN(2).left, float(std::log(64.0) / std::log(128.0)));
    EXPECT_FLOAT_EQ(data.SampleN(2).right, float(std::log(17.0) / std::log(128.0)));

    EXPECT_EQ(EnergyScale::Byte(32768), 127);
    EXPECT_EQ(EnergyScale::Byte(0), 0);
    EXPECT_DOUBLE_EQ(EnergyScale::Value(1.0), 1.0);
}

TEST_F(EnergyFileTest, SampleCountRoundsHalvesToEvenAndNeverReadsPastTheBlock)
{
    // 5 bytes over two channels: 2.5 rounds to 2; 7 bytes: 3.5 rounds to 4, and the missing
    // right byte of the last sample reads as silence, not as the byte that follows the block.
    EXPECT_EQ(EnergyData::Parse(WellFormed(2, "\x7f\x7f\x7f\x7f\x7f"), "five").Samples(), 2);
    QByteArray seven = WellFormed(2, QByteArray(7, '\x7f'));
    seven.append('\x7f');
    qToLittleEndian<qint32>(7 + 12, seven.data() + EnergyFile::SizeOffset);
    const EnergyData data = EnergyData::Parse(seven, "seven");
    ASSERT_EQ(data.Samples(), 4);
    EXPECT_FLOAT_EQ(data.SampleN(3).left, 1.0f);
    EXPECT_EQ(data.SampleN(3).right, 0.0f);
}

TEST_F(EnergyFileTest, MalformedFilesAreRefusedByName)
{
    const auto refusal = [](const QByteArray& bytes) {
        try {
            EnergyData::Parse(bytes, "bad.bef");
        } catch (const KernelError& e) {
            return e.Description();
        }
        return QStringLiteral("accepted");
    };
    EXPECT_TRUE(refusal(WellFormed(2, {}).left(566)).contains("fewer than the 567 of the header"));
    EXPECT_TRUE(refusal(Handmade(12 + 10, 2, 1, QByteArray(9, 1))).contains("size field (22)"));
    EXPECT_TRUE(refusal(Handmade(11, 2, 1, {})).contains("size field (11)"));
    EXPECT_TRUE(refusal(Handmade(12 + 4, 0, 1, QByteArray(4, 1))).contains("0 channels"));
    EXPECT_TRUE(refusal(Handmade(12 + 4, -3, 1, QByteArray(4, 1))).contains("-3 channels"));
    EXPECT_TRUE(refusal(Handmade(12 + 4, 2, 2, QByteArray(4, 1))).contains("2 bytes wide"));
    EXPECT_TRUE(refusal(Handmade(12 + 4, 2, 1, QByteArray(4, 1))).startsWith("accepted"));
    EXPECT_TRUE(refusal(Handmade(12, 1, 1, {})).startsWith("accepted")) << "an empty sound has an empty block";

    // The reader names the file, and a refused file leaves it closed.
    EnergyReader reader;
    reader.SetFileName(WriteBytes("good.bef", WellFormed(1, "\x7f")));
    const QString bad = WriteBytes("bad.bef", Handmade(12 + 4, 0, 1, QByteArray(4, 1)));
    try {
        reader.SetFileName(bad);
        ADD_FAILURE() << "a file with no channels was read";
    } catch (const KernelError& e) {
        EXPECT_TRUE(e.Description().contains(bad)) << e.what();
    }
    EXPECT_EQ(reader.howManySamples(), 0);
    EXPECT_THROW(reader.SetFileName(Path("missing.bef")), KernelError);
}

TEST_F(EnergyFileTest, TruncatedAndEmptyWavFilesGetTheEnergyOfWhatIsThere)
{
    const QString truncated = WriteTone("truncated.wav", {ToneFile::Format::Wav16, 44100, 2, 1000, 440, 0.5});
    QFile(truncated).resize(44 + 44100 * 4 / 2); // header and half the frames
    const AudioFileInfo half = EnergyFile::WriteFor(truncated);
    EXPECT_EQ(half.LengthMs(), 500);
    EXPECT_EQ(half.energy.size(), 50 * 2);

    const QString empty = WriteTone("empty.wav", {ToneFile::Format::Wav16, 44100, 2, 0, 440, 0.5});
    const AudioFileInfo none = EnergyFile::WriteFor(empty);
    EXPECT_EQ(none.LengthMs(), 0);
    EnergyReader reader;
    reader.SetFileName(EnergyFile::PathFor(empty));
    EXPECT_EQ(reader.howManySamples(), 0);

    const QString noise = WriteBytes("noise.wav", QByteArray("RIFF\x10\0\0\0WAVEjunkjunkjunk", 24));
    EXPECT_THROW(EnergyFile::WriteFor(noise), KernelError);
    EXPECT_FALSE(QFile::exists(EnergyFile::PathFor(noise)));
}

TEST_F(EnergyFileTest, DecodingFromMemoryMatchesDecodingTheFile)
{
    const QString flac = WriteTone("tone.flac", {ToneFile::Format::Flac, 44100, 2, 300, 220, 0.25});
    QFile file(flac);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    AudioFile memory = AudioFile::FromMemory(file.readAll(), "tone.flac");
    AudioFile disk = AudioFile::Open(flac);
    const AudioFileInfo fromMemory = AudioFileInfo::Decode(memory);
    const AudioFileInfo fromDisk = AudioFileInfo::Decode(disk);
    EXPECT_EQ(fromMemory.frames, 44100 * 3 / 10);
    EXPECT_EQ(fromMemory.energy, fromDisk.energy);
    EXPECT_THROW(AudioFile::FromMemory(QByteArray(100, 'x'), "garbage"), KernelError);
}
