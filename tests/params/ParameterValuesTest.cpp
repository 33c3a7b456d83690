#include <gtest/gtest.h>

#include "GeqPreset.h"
#include "Profile.h"

namespace ovela {
namespace {

TEST(ParameterValuesTest, SetAcceptsAnyParameterReplacesAndMarksDirty) {
    Profile profile(1, 2, "p", PRESET_TYPE_OFF);
    ASSERT_FALSE(profile.isDirty());
    profile.set(GEQ_GAIN, {1, 2});
    profile.set(GEQ_GAIN, {4});
    EXPECT_TRUE(profile.isDirty());
    EXPECT_EQ(profile.values.at(GEQ_GAIN), std::vector<int>{4});
}

TEST(ParameterValuesTest, ValuesToStringListsInValueOrderWithTrailingCommas) {
    GeqPreset preset(0);
    preset.set(GEQ_GAIN, {0, -12, 40});
    preset.set(GEQ_FREQUENCY, {});
    preset.set(VOLUME_MODELER_ENABLE, {1});
    preset.set(MI_QV_LEVELER_STEERING_ENABLE, {2});
    preset.set(MI_IEQ_STEERING_ENABLE, {3});
    EXPECT_EQ(preset.valuesToString(),
              "geq_frequency=\n"
              "geq_gain=0,-12,40,\n"
              "mi_qv_leveler_steering_enable=2,\n"
              "mi_ieq_steering_enable=3,\n"
              "volume_modeler_enable=1,\n");
}

}  // namespace
}  // namespace ovela
