#pragma once
#include "foundation/Globals.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "kernel/EmbeddedKernel.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iUsers.h"
#include "support/TempStation.h"
#include <gtest/gtest.h>
#include <memory>

// A demo station (with benchmark carts when asked) and the embedded kernel on it, as the
// browsers find it in the running program, with scripted dialogs.
class BrowseTest : public ::testing::Test
{
protected:
    explicit BrowseTest(int benchmarkCarts = 0, SoundLength length = SoundLength::Short) : station(benchmarkCarts, length) {}

    void SetUp() override
    {
        auto scripted = std::make_unique<ScriptedDialogs>();
        dialogs = scripted.get();
        Dialogs::SetHandler(std::move(scripted));
        kernel = EmbeddedKernel::Open(station.Folder(), nullptr);
        Globals::SetKernel(kernel);
    }

    void TearDown() override { Globals::SetKernel(nullptr); }

    void LoginAs(const QString& user, const QString& password) { ASSERT_TRUE(kernel->Users()->Login(user, password)); }

    TempStation station;
    std::shared_ptr<EmbeddedKernel> kernel;
    ScriptedDialogs* dialogs = nullptr;
};
