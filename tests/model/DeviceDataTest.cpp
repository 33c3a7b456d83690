#include <gtest/gtest.h>

#include "DeviceData.h"

namespace ovela {
namespace {

TEST(DeviceDataTest, ValidateDataSwitchesOffPresetOfProfilesWithIeqDisabled) {
    Profile off(1, 0, "off", PRESET_TYPE_WARM);
    off.set(IEQ_ENABLE, {0});
    off.setDirty(false);
    Profile on(2, 1, "on", PRESET_TYPE_WARM);
    on.set(IEQ_ENABLE, {1});
    on.setDirty(false);
    Profile missing(3, 2, "missing", PRESET_TYPE_DETAILED);
    Profile empty(4, 3, "empty", PRESET_TYPE_DETAILED);
    empty.set(IEQ_ENABLE, {});
    empty.setDirty(false);

    std::set<Profile*> profiles{&off, &on, &missing, &empty};
    DeviceData data;
    data.setProfiles(profiles);
    data.validateData();

    EXPECT_EQ(off.getSelectedIeqPreset(), PRESET_TYPE_OFF);
    EXPECT_TRUE(off.isDirty());
    EXPECT_EQ(on.getSelectedIeqPreset(), PRESET_TYPE_WARM);
    EXPECT_FALSE(on.isDirty());
    EXPECT_EQ(missing.getSelectedIeqPreset(), PRESET_TYPE_DETAILED);
    EXPECT_EQ(missing.values.count(IEQ_ENABLE), 0u);
    EXPECT_EQ(empty.getSelectedIeqPreset(), PRESET_TYPE_DETAILED);
    EXPECT_FALSE(empty.isDirty());
}

}  // namespace
}  // namespace ovela
