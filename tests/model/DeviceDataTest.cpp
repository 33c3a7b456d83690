#include <gtest/gtest.h>

#include <memory>

#include "DeviceData.h"

namespace ovela {
namespace {

TEST(DeviceDataTest, FreshContainerIsEmpty) {
    DeviceData data;
    EXPECT_EQ(data.getFormatVersion(), "");
    EXPECT_EQ(data.getToolVersion(), "");
    EXPECT_EQ(data.getSignature(), "");
    EXPECT_TRUE(data.getProfiles().empty());
    EXPECT_TRUE(data.getTunings().empty());
    EXPECT_TRUE(data.getGeneralEndpoints().empty());
    EXPECT_EQ(data.getGeneral(), nullptr);
}

TEST(DeviceDataTest, SettersCopyTheCallersSet) {
    Profile first(0, "a", PRESET_TYPE_OFF);
    Profile second(1, "b", PRESET_TYPE_OFF);
    std::set<Profile*> profiles{&first};
    DeviceData data;
    data.setProfiles(profiles);
    profiles.insert(&second);
    EXPECT_EQ(data.getProfiles(), std::set<Profile*>{&first});
    data.setProfiles(data.getProfiles());
    EXPECT_EQ(data.getProfiles(), std::set<Profile*>{&first});

    std::set<ProfileEndpoint*> endpoints;
    ProfileEndpoint endpoint(0, ENDPOINT_SPEAKER);
    endpoints.insert(&endpoint);
    data.setProfileEndPoints(endpoints);
    EXPECT_EQ(data.getProfileEndpoints(), endpoints);
}

TEST(DeviceDataTest, DestroyingTheContainerLeavesEntitiesAlive) {
    auto general = std::make_unique<General>();
    auto tuning = std::make_unique<Tuning>("t", ENDPOINT_SPEAKER, false);
    {
        DeviceData data;
        std::set<Tuning*> tunings{tuning.get()};
        data.setTunings(tunings);
        data.setGeneral(general.get());
        EXPECT_EQ(data.getGeneral(), general.get());
    }
    // Still usable: the container never deleted them.
    general->set(AUXILIARY_SYSTEM_GAIN_ENABLE, {1});
    EXPECT_EQ(tuning->getName(), "t");
}

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
