#include "metering/CVumeter.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iStream.h"
#include <algorithm>

namespace {
const QString Object = QStringLiteral("CVumeter");

// A setting of the shared store as a number: the leading number of its text, 0 for none.
float ConfigNumber(const CKernel& kernel, const char* key)
{
    return static_cast<float>(Val(kernel.Config(QLatin1String(key)).toString()));
}
}

CVumeter::CVumeter()
{
    LevelReset();
}

void CVumeter::SetChannel(std::shared_ptr<iChannel> channel)
{
    Guarded(Object, QStringLiteral("Channle_Set"), [&] {
        m_channel = std::move(channel);
        m_vumeterType = 0;
        InitVisualizationParams();
    });
}

std::shared_ptr<iStream> CVumeter::Stream()
{
    m_vumeterType = 1;
    return m_stream;
}

void CVumeter::SetStream(std::shared_ptr<iStream> stream)
{
    Guarded(Object, QStringLiteral("Stream_Set"), [&] {
        m_stream = std::move(stream);
        m_vumeterType = 1;
        InitVisualizationParams();
    });
}

void CVumeter::InitVisualizationParams()
{
    const std::shared_ptr<CKernel> kernel = Globals::Kernel();
    if (!kernel)
        throw KernelError(QStringLiteral("No kernel to read the meter settings from"));
    m_levelZeroPercent = ConfigNumber(*kernel, "LevelZeroPercent");
    m_levelTenPercent = ConfigNumber(*kernel, "LevelTenPercent");
    m_workLevel = ConfigNumber(*kernel, "WorkLevel");
    m_noiseLevel = ConfigNumber(*kernel, "NoiseLevel");
}

AudioLevels CVumeter::ReadSource() const
{
    if (m_vumeterType == 0)
        return m_channel ? m_channel->GetLevels() : AudioLevels();
    return m_stream ? m_stream->GetLevels() : AudioLevels();
}

CVumeter::Reading CVumeter::Level()
{
    const AudioLevels source = ReadSource();
    Reading reading;
    reading.left = std::max(source.left, m_noiseLevel + 1);
    reading.right = std::max(source.right, m_noiseLevel + 1);
    reading.left *= m_sweepFactor;
    reading.right *= m_sweepFactor;
    if (m_sweepFactor != 1.0f) {
        m_sweepFactor = 1 - (1 - m_sweepFactor) * m_sweepSpeed;
        if (m_sweepFactor > 0.99f)
            m_sweepFactor = 1.0f;
    }
    reading.leftPeak = reading.left;
    reading.rightPeak = reading.right;
    Median(m_leftPeak, reading.leftPeak);
    Median(m_rightPeak, reading.rightPeak);
    reading.valid = source.valid;
    return reading;
}

// The peak hold of one side: the stored peak falls by the shared speed; a higher value takes
// its place and stops the fall, else the peak shown is the stored one and the fall speeds up.
void CVumeter::Median(float& storedPeak, float& value)
{
    storedPeak += m_fallSpeed;
    if (storedPeak < value) {
        storedPeak = value;
        m_fallSpeed = 0;
    } else {
        value = storedPeak;
        m_fallSpeed += m_fallStep;
    }
}

void CVumeter::LevelReset()
{
    m_leftPeak = 0;
    m_rightPeak = 0;
    m_fallSpeed = 0;
    m_sweepFactor = 0;
    m_fallStep = -0.1f;
    m_sweepSpeed = 0.9f;
}
