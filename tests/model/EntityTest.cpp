#include <gtest/gtest.h>

#include "DeviceTuning.h"
#include "DeviceTypes.h"
#include "General.h"
#include "GeneralEndpoint.h"
#include "GeqPreset.h"
#include "IeqPreset.h"
#include "Profile.h"
#include "ProfileEndpoint.h"
#include "Tuning.h"

namespace ovela {
namespace {

TEST(EntityTest, ConstructorsSetIdAndDirtyFlag) {
    General fromFile;
    General withId(4);
    EXPECT_EQ(fromFile.getId(), -1);
    EXPECT_TRUE(fromFile.isDirty());
    EXPECT_EQ(withId.getId(), 4);
    EXPECT_FALSE(withId.isDirty());

    ProfileEndpoint endpoint(5000000000LL, 3, ENDPOINT_USB);
    EXPECT_EQ(endpoint.getId(), 5000000000LL);
    EXPECT_FALSE(endpoint.isDirty());

    Tuning readOnly("spk", ENDPOINT_HEADPHONE, true);
    EXPECT_TRUE(readOnly.isReadonly());
    EXPECT_TRUE(readOnly.isDirty());
    Tuning writable(2, "spk", ENDPOINT_HEADPHONE, false, false);
    EXPECT_FALSE(writable.isReadonly());
    EXPECT_FALSE(writable.isDirty());

    DeviceTuning binding(9, "dev", "port", "t");
    EXPECT_TRUE(binding.isDirty());
}

TEST(EntityTest, ProfileSelectsItsOwnGeqPresetByDefault) {
    Profile profile(5, "movie", PRESET_TYPE_OFF);
    EXPECT_EQ(profile.getSelectedGeqPreset(), 5);
    profile.setDirty(false);
    profile.setSelectedGeqPreset(2);
    EXPECT_TRUE(profile.isDirty());
    EXPECT_EQ(profile.getSelectedGeqPreset(), 2);
}

TEST(EntityTest, IeqPresetCarriesItsTypeAsIeqIdAndIsDirty) {
    IeqPreset preset(7, PRESET_TYPE_WARM);
    EXPECT_EQ(preset.getId(), 7);
    EXPECT_TRUE(preset.isDirty());
    EXPECT_EQ(preset.values.at(IEQ_ID), std::vector<int>{3});
    // The type is printed in the header; ieq_id is never printed.
    preset.set(IEQ_TARGET, {5});
    EXPECT_EQ(preset.toString(), "id=7\ntype=warm\nieq_target=5,\n");
}

TEST(EntityTest, TuningSetEndpointAcceptsOnlyTheThreeTuningEndpoints) {
    Tuning tuning("t", ENDPOINT_HEADPHONE, false);
    tuning.setDirty(false);
    tuning.setEndpoint("internal_speaker");
    tuning.setEndpoint("bluetooth");
    tuning.setEndpoint("Other");
    EXPECT_EQ(tuning.getEndpoint(), ENDPOINT_HEADPHONE);
    tuning.setEndpoint("other");
    EXPECT_EQ(tuning.getEndpoint(), ENDPOINT_OTHER);
    tuning.setMono(true);
    EXPECT_TRUE(tuning.isMono());
    EXPECT_FALSE(tuning.isDirty());
    EXPECT_EQ(Tuning::kEndpNameToEndpoint.size(), 3u);
}

TEST(EntityTest, DeviceTypesFoldIntoTheThreeTuningEndpoints) {
    EXPECT_EQ(kDeviceTypeToEndpoint.at("bluetooth"), ENDPOINT_HEADPHONE);
    EXPECT_EQ(kDeviceTypeToEndpoint.at("miracast"), ENDPOINT_OTHER);
    EXPECT_EQ(kDeviceTypeToEndpoint.at("internal_speaker"), ENDPOINT_SPEAKER);
    EXPECT_EQ(kDeviceTypeToEndpoint.size(), 7u);
    EXPECT_STREQ(kEndpointNames[ENDPOINT_AUX_DIGITAL], "aux_digital");
}

TEST(EntityTest, ToStringTexts) {
    General general;
    general.set(AUXILIARY_SYSTEM_GAIN_ENABLE, {1});
    EXPECT_EQ(general.toString(), "id=-1\nauxiliary_system_gain_enable=1,\n");

    GeneralEndpoint generalEndpoint(ENDPOINT_REMOTE_SUBMIX);
    EXPECT_EQ(generalEndpoint.toString(), "id=-1\nendpoint=remote_submix\n");

    Profile profile(3, "music", PRESET_TYPE_BALANCED);
    profile.set(IEQ_ENABLE, {1});
    EXPECT_EQ(profile.toString(),
              "id=-1\nprofileId=3\nname=music\nselectedIeqPreset=balanced\nselectedGeqPreset=3\n"
              "ieq_enable=1,\n");

    ProfileEndpoint profileEndpoint(2, ENDPOINT_BLUETOOTH);
    EXPECT_EQ(profileEndpoint.toString(), "id=-1\nprofileId=2\nendpoint=bluetooth\n");

    Tuning tuning(8, "speaker", ENDPOINT_SPEAKER, true, false);
    tuning.set(ORIENTATION, {});
    EXPECT_EQ(tuning.toString(),
              "id=8\nname=speaker\nendpoint=speaker\nmono=true\nreadonly=false\norientation=\n");

    GeqPreset geq(2);
    EXPECT_EQ(geq.toString(), "id=-1\nprofileId=2\n");

    DeviceTuning binding("dev", "port", "tuning");
    EXPECT_EQ(binding.toString(), "id=-1\ndevice=dev\nport=port\ntuning=tuning");
}

TEST(EntityTest, ProfileEqualsIgnoresNameAndGeqPreset) {
    Profile a(1, 4, "a", PRESET_TYPE_WARM);
    Profile b(2, 4, "b", PRESET_TYPE_WARM);
    a.set(IEQ_AMOUNT, {3});
    b.set(IEQ_AMOUNT, {3});
    b.setSelectedGeqPreset(9);
    EXPECT_TRUE(a.equals(b));
    EXPECT_TRUE(a.equals(a));

    Profile otherPreset(4, "a", PRESET_TYPE_OFF);
    otherPreset.set(IEQ_AMOUNT, {3});
    EXPECT_FALSE(a.equals(otherPreset));
    Profile otherId(5, "a", PRESET_TYPE_WARM);
    otherId.set(IEQ_AMOUNT, {3});
    EXPECT_FALSE(a.equals(otherId));
}

TEST(EntityTest, EqualsComparesWholeListsAndKeyFields) {
    GeqPreset a(1), b(1);
    a.set(GEQ_GAIN, {1, 2});
    b.set(GEQ_GAIN, {1, 2, 0});
    EXPECT_FALSE(a.equals(b));
    b.set(GEQ_GAIN, {1, 2});
    EXPECT_TRUE(a.equals(b));
    b.set(GEQ_FREQUENCY, {});
    EXPECT_FALSE(a.equals(b));

    ProfileEndpoint speaker(1, ENDPOINT_SPEAKER), headphone(1, ENDPOINT_HEADPHONE);
    EXPECT_FALSE(speaker.equals(headphone));
    ProfileEndpoint otherProfile(2, ENDPOINT_SPEAKER);
    EXPECT_FALSE(speaker.equals(otherProfile));

    GeneralEndpoint usb(ENDPOINT_USB), usb2(3, ENDPOINT_USB), aux(ENDPOINT_AUX_DIGITAL);
    EXPECT_TRUE(usb.equals(usb2));
    EXPECT_FALSE(usb.equals(aux));

    General g1, g2;
    g1.set(AUXILIARY_SYSTEM_GAIN_ENABLE, {1});
    g2.set(AUXILIARY_SYSTEM_GAIN_ENABLE, {0});
    EXPECT_FALSE(g1.equals(g2));
}

}  // namespace
}  // namespace ovela
