#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>

#include "General.h"
#include "GeneralEndpoint.h"
#include "GeqPreset.h"
#include "IeqPreset.h"
#include "Profile.h"
#include "ProfileEndpoint.h"
#include "Tuning.h"

namespace ovela {
namespace {

TEST(ParameterCatalogueTest, NamesFollowByteOrderExceptTheQvLevelerAt47) {
    EXPECT_STREQ(kParameterNames[ADVANCED_HEADPHONE_VIRTUALIZER_LR_ANGLE],
                 "advanced_headphone_virtualizer_lr_angle");
    EXPECT_STREQ(kParameterNames[IEQ_ID], "ieq_id");
    EXPECT_EQ(IEQ_ID, 43);
    EXPECT_STREQ(kParameterNames[VOLUME_MODELER_ENABLE], "volume_modeler_enable");
    EXPECT_EQ(VOLUME_MODELER_ENABLE, 97);
    EXPECT_STREQ(kParameterNames[47], "mi_qv_leveler_steering_enable");
    EXPECT_EQ(MI_QV_LEVELER_STEERING_ENABLE, 47);

    for (size_t i = 1; i < kNumParameters; ++i) {
        SCOPED_TRACE(kParameterNames[i]);
        // Only the pair (47, 48) is out of byte order.
        bool outOfOrder = i == 48;
        EXPECT_EQ(std::strcmp(kParameterNames[i - 1], kParameterNames[i]) < 0, !outOfOrder);
    }
}

TEST(ParameterCatalogueTest, ValidSetsHaveTheirSizesAndAreDisjoint) {
    const std::map<std::string, const std::set<Parameter>*> sets = {
        {"General", &General::kValidParams},
        {"GeneralEndpoint", &GeneralEndpoint::kValidParams},
        {"Profile", &Profile::kValidParams},
        {"ProfileEndpoint", &ProfileEndpoint::kValidParams},
        {"Tuning", &Tuning::kValidParams},
        {"IeqPreset", &IeqPreset::kValidParams},
        {"GeqPreset", &GeqPreset::kValidParams},
    };
    const std::map<std::string, size_t> sizes = {
        {"General", 1}, {"GeneralEndpoint", 1}, {"Profile", 8},   {"ProfileEndpoint", 17},
        {"Tuning", 48}, {"IeqPreset", 3},       {"GeqPreset", 2},
    };
    std::map<Parameter, std::string> owner;
    for (const auto& [name, params] : sets) {
        EXPECT_EQ(params->size(), sizes.at(name)) << name;
        for (Parameter p : *params) {
            auto [it, inserted] = owner.emplace(p, name);
            EXPECT_TRUE(inserted) << kParameterNames[p] << " in " << name << " and " << it->second;
        }
    }
    EXPECT_EQ(kNumParameters - owner.size(), 18u);
    // The placements that are easy to get wrong: the auxiliary gain and the
    // equalizer switches are split across levels.
    EXPECT_EQ(owner[AUXILIARY_SYSTEM_GAIN_ENABLE], "General");
    EXPECT_EQ(owner[AUXILIARY_SYSTEM_GAIN], "GeneralEndpoint");
    EXPECT_EQ(owner[IEQ_ENABLE], "Profile");
    EXPECT_EQ(owner[GRAPHIC_EQUALIZER_ENABLE], "ProfileEndpoint");
    EXPECT_EQ(owner.count(SYSTEM_GAIN), 0u);
    EXPECT_EQ(owner.count(MI_DIALOG_ENHANCER_STEERING_ENABLE), 0u);
}

TEST(ParameterCatalogueTest, EntitiesReturnTheirClassSet) {
    Tuning tuning("t", ENDPOINT_SPEAKER, false);
    Profile profile(0, "p", PRESET_TYPE_OFF);
    EXPECT_EQ(&tuning.getValidParams(), &Tuning::kValidParams);
    EXPECT_EQ(tuning.getValidParams().count(OUTPUT_MIX_MATRIX), 1u);
    EXPECT_EQ(profile.getValidParams().count(GEQ_GAIN), 0u);
    EXPECT_EQ(&profile.getValidParams(), &Profile::kValidParams);
}

}  // namespace
}  // namespace ovela
