#pragma once
#include "kernelapi/iStreams.h"
#include <memory>
#include <vector>

class Stream;

// The streams of one channel, in order.
class Streams : public iStreams
{
    Q_OBJECT
public:
    explicit Streams(std::vector<std::shared_ptr<Stream>> streams) : m_streams(std::move(streams)) {}

    int Count() const override { return static_cast<int>(m_streams.size()); }
    std::shared_ptr<iStream> Item(int index) const override;

private:
    std::vector<std::shared_ptr<Stream>> m_streams;
};
