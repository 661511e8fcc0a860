#pragma once
#include "support/TempStation.h"
#include <gtest/gtest.h>

// A test of the running workstation on a fresh demo station: whatever the test started ends
// with it as the program's end ends it (the interface, the forms, the kernel) before the
// station goes, so that the next test of the process starts a workstation of its own.
class WorkstationTest : public ::testing::Test
{
protected:
    void TearDown() override;

    TempStation station;
};
