#pragma once
#include "controls/RecordingLogger.h"
#include "foundation/Globals.h"
#include "metering/FakeKernel.h"
#include "metering/MeterClock.h"
#include <gtest/gtest.h>

// A fake kernel with the demo station's meter settings, a recording logger, and the meter
// clock held still so that only the test's own ticks move the meters.
class MeterTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MeterClock::Instance().Suspend(true);
        Globals::SetKernel(kernel);
    }

    void TearDown() override
    {
        Globals::SetKernel(nullptr);
        Log::SetLogger(nullptr);
    }

    static void Ticks(int count)
    {
        for (int i = 0; i < count; ++i)
            MeterClock::Instance().Tick();
    }

    // Ticks until the clock has given one beat of a slower signal, wherever in its period the
    // clock stands.
    static void UntilBeat(void (MeterClock::*beat)())
    {
        int beats = 0;
        const QMetaObject::Connection counter = QObject::connect(&MeterClock::Instance(), beat, [&] { ++beats; });
        while (beats == 0)
            MeterClock::Instance().Tick();
        QObject::disconnect(counter);
    }

    std::shared_ptr<FakeKernel> kernel = std::make_shared<FakeKernel>();
    std::shared_ptr<RecordingLogger> log = RecordingLogger::Install();
};
