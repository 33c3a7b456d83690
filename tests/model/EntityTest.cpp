#include <gtest/gtest.h>

#include "DeviceTuning.h"
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
}

// An effect may pass on any 32-bit value as an endpoint.
TEST(EntityTest, AnEndpointOutsideTheSevenPrintsAsUnknown) {
    GeneralEndpoint settings(static_cast<Endpoint>(-1));
    ProfileEndpoint profileSettings(2, static_cast<Endpoint>(7));
    EXPECT_EQ(settings.toString(), "id=-1\nendpoint=unknown\n");
    EXPECT_EQ(profileSettings.toString(), "id=-1\nprofileId=2\nendpoint=unknown\n");
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
