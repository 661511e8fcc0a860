#pragma once
#include "kernelapi/KernelError.h"
#include "kernelapi/iChannel.h"
#include "metering/FakeStreams.h"

// A channel that gives whatever levels and state the test sets, standing in where the real
// engine cannot produce a level on demand. With `failing` set its reads throw.
class FakeChannel : public iChannel
{
public:
    FakeChannel(const QString& name, int streamCount, qint32 direction = 0)
        : name(name), direction(direction), streams(std::make_shared<FakeStreams>(streamCount)) {}

    QString Name() const override { return name; }
    qint32 Direction() const override { return direction; }
    bool Active() const override { return active; }
    bool ChannelOn() const override
    {
        FailIfAsked();
        return on;
    }
    AudioLevels GetLevels() const override
    {
        FailIfAsked();
        return levels;
    }
    qint64 Underruns() const override { return underruns; }
    std::shared_ptr<iStreams> Streams() const override { return streams; }

    void SetLevels(float left, float right, bool valid = true) { levels = {left, right, valid}; }

    QString name;
    qint32 direction = 0;
    bool active = true;
    bool on = false;
    bool failing = false;
    qint64 underruns = 0;
    AudioLevels levels;
    std::shared_ptr<FakeStreams> streams;

private:
    void FailIfAsked() const
    {
        if (failing)
            throw KernelError(QStringLiteral("Channel %1 does not answer").arg(name));
    }
};
