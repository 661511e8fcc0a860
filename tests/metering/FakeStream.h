#pragma once
#include "kernelapi/iStream.h"

// A stream whose levels the test sets.
class FakeStream : public iStream
{
public:
    QString Name() const override { return QStringLiteral("Stream"); }
    AudioLevels GetLevels() const override { return levels; }
    std::shared_ptr<iCartPlayer> CartPlayer() const override { return nullptr; }
    std::shared_ptr<iCartRecorder> CartRecorder() const override { return nullptr; }

    AudioLevels levels;
};
