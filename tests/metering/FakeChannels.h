#pragma once
#include "kernelapi/KernelError.h"
#include "kernelapi/iChannels.h"
#include "metering/FakeChannel.h"
#include <algorithm>
#include <vector>

// The fake channels of a fake kernel, in order.
class FakeChannels : public iChannels
{
public:
    int Count() const override { return static_cast<int>(channels.size()); }
    std::shared_ptr<iChannel> Item(int index) const override
    {
        if (index < 1 || index > Count())
            throw KernelError(QStringLiteral("No channel %1").arg(index));
        return channels[index - 1];
    }
    std::shared_ptr<iChannel> Item(const QString& name) const override
    {
        for (const auto& channel : channels)
            if (channel->name == name)
                return channel;
        throw KernelError(QStringLiteral("No channel named %1").arg(name));
    }
    bool Exists(const QString& name) const override
    {
        return std::any_of(channels.begin(), channels.end(), [&](const auto& channel) { return channel->name == name; });
    }

    std::shared_ptr<FakeChannel> Add(const QString& name, int streamCount, qint32 direction = 0)
    {
        channels.push_back(std::make_shared<FakeChannel>(name, streamCount, direction));
        return channels.back();
    }

    std::vector<std::shared_ptr<FakeChannel>> channels;
};
