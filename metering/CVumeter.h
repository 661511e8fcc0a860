#pragma once
#include "kernelapi/AudioLevels.h"
#include <QString>
#include <QtGlobal>
#include <memory>

class iChannel;
class iStream;

// The invisible half of a level meter: reads the levels of a channel (VumeterType 0) or of a
// stream (any other type), holds them above the noise floor, applies the sweep that follows
// LevelReset, and keeps a falling peak for each side. The peaks fall with constant
// acceleration, and the fall speed is one value shared by both sides: when both fall it grows
// twice a read, and a rise of either side stops the fall of the other.
class CVumeter
{
public:
    struct Reading
    {
        float left = -110;
        float right = -110;
        float leftPeak = -110;
        float rightPeak = -110;
        bool valid = false;
    };

    CVumeter();

    std::shared_ptr<iChannel> Channel() const { return m_channel; }
    // Binds the channel, reads the meter settings and switches to the channel.
    void SetChannel(std::shared_ptr<iChannel> channel);
    // Reading the stream switches the meter to it as well.
    std::shared_ptr<iStream> Stream();
    void SetStream(std::shared_ptr<iStream> stream);
    qint32 VumeterType() const { return m_vumeterType; }
    void SetVumeterType(qint32 type) { m_vumeterType = type; }

    // One read of the source. With nothing bound the reading is not valid. A failing source
    // throws KernelError and leaves the peaks as they were.
    Reading Level();
    // Peaks to 0 dB, the bar sweeping down from full to the true level over the next reads.
    void LevelReset();

    // The meter settings of the kernel's shared store, read when a source is bound.
    float LevelZeroPercent() const { return m_levelZeroPercent; }
    float LevelTenPercent() const { return m_levelTenPercent; }
    float WorkLevel() const { return m_workLevel; }
    float NoiseLevel() const { return m_noiseLevel; }

private:
    void InitVisualizationParams();
    AudioLevels ReadSource() const;
    void Median(float& storedPeak, float& value);

    std::shared_ptr<iChannel> m_channel;
    std::shared_ptr<iStream> m_stream;
    qint32 m_vumeterType = 0;
    float m_leftPeak = 0;
    float m_rightPeak = 0;
    float m_fallSpeed = 0;
    float m_fallStep = -0.1f;
    float m_levelZeroPercent = 0;
    float m_levelTenPercent = 0;
    float m_workLevel = 0;
    float m_noiseLevel = 0;
    float m_sweepFactor = 0;
    float m_sweepSpeed = 0.9f;
};
