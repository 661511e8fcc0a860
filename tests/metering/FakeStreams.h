#pragma once
#include "kernelapi/KernelError.h"
#include "kernelapi/iStreams.h"
#include "metering/FakeStream.h"
#include <vector>

// A fixed number of fake streams.
class FakeStreams : public iStreams
{
public:
    explicit FakeStreams(int count)
    {
        for (int i = 0; i < count; ++i)
            streams.push_back(std::make_shared<FakeStream>());
    }

    int Count() const override { return static_cast<int>(streams.size()); }
    std::shared_ptr<iStream> Item(int index) const override
    {
        if (index < 1 || index > Count())
            throw KernelError(QStringLiteral("No stream %1").arg(index));
        return streams[index - 1];
    }

    std::vector<std::shared_ptr<FakeStream>> streams;
};
