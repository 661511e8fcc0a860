#pragma once
// A demo station and the embedded kernel on it, as the editing panels find them in the running
// program, with scripted dialogs and a recording logger.
#include "controls/RecordingLogger.h"
#include "foundation/Globals.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "kernel/EmbeddedKernel.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iUsers.h"
#include "support/TempStation.h"
#include <gtest/gtest.h>
#include <memory>

class EditingTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto scripted = std::make_unique<ScriptedDialogs>();
        dialogs = scripted.get();
        previousDialogs = Dialogs::SetHandler(std::move(scripted));
        kernel = EmbeddedKernel::Open(station.Folder(), nullptr);
        Globals::SetKernel(kernel);
    }

    void TearDown() override
    {
        Dialogs::SetHandler(std::move(previousDialogs));
        Globals::SetKernel(nullptr);
        kernel.reset();
        Log::SetLogger(nullptr);
    }

    void LoginAs(const QString& user, const QString& password) { ASSERT_TRUE(kernel->Users()->Login(user, password)); }
    std::shared_ptr<iCart> Cart(const QString& id) const { return kernel->Carts()->Cart(id); }
    bool Exists(const QString& id) const { return kernel->Carts()->Exists(id); }

    TempStation station;
    std::shared_ptr<EmbeddedKernel> kernel;
    ScriptedDialogs* dialogs = nullptr;
    std::unique_ptr<Dialogs::Handler> previousDialogs;
    std::shared_ptr<RecordingLogger> log = RecordingLogger::Install();
};
