// The flashing light: what its owner is shown when it starts and stops flashing and at
// each turn.
#include "foundation/controls/FlashingLight.h"
#include <gtest/gtest.h>

TEST(FlashingLight, FlashingStartsUnlitAndTurnsAtEachTickStoppingLightsItSteadily)
{
    QList<bool> shown;
    FlashingLight light(250, [&shown](bool lit) { shown.append(lit); });
    EXPECT_TRUE(light.Lit());
    EXPECT_FALSE(light.Flashing());
    EXPECT_EQ(light.Timer().interval(), 250);
    EXPECT_TRUE(shown.isEmpty()) << "nothing is shown before the owner asks";

    light.SetFlashing(true);
    EXPECT_TRUE(light.Timer().isActive());
    light.Turn();
    light.Turn();
    EXPECT_EQ(shown, QList<bool>({false, true, false}));

    light.SetFlashing(false);
    EXPECT_FALSE(light.Timer().isActive());
    EXPECT_TRUE(light.Lit());
    EXPECT_EQ(shown.last(), true);
}
