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
    // Each entity hands out its class's set.
    const struct {
        const char* name;
        const std::set<Parameter>& params;
        size_t size;
    } classes[] = {
        {"General", General().getValidParams(), 1},
        {"GeneralEndpoint", GeneralEndpoint(ENDPOINT_USB).getValidParams(), 1},
        {"Profile", Profile(0, "p", PRESET_TYPE_OFF).getValidParams(), 8},
        {"ProfileEndpoint", ProfileEndpoint(0, ENDPOINT_USB).getValidParams(), 17},
        {"Tuning", Tuning("t", ENDPOINT_SPEAKER, false).getValidParams(), 48},
        {"IeqPreset", IeqPreset(PRESET_TYPE_OFF).getValidParams(), 3},
        {"GeqPreset", GeqPreset(0).getValidParams(), 2},
    };
    std::map<Parameter, std::string> owner;
    for (const auto& entity : classes) {
        EXPECT_EQ(entity.params.size(), entity.size) << entity.name;
        for (Parameter p : entity.params) {
            auto [it, inserted] = owner.emplace(p, entity.name);
            EXPECT_TRUE(inserted) << kParameterNames[p] << " in " << entity.name << " and "
                                  << it->second;
        }
    }
    EXPECT_EQ(kNumParameters - owner.size(), 18u);
    // The placements that are easy to get wrong: the auxiliary gain and the
    // equalizer switches are split across levels.
    EXPECT_EQ(owner[AUXILIARY_SYSTEM_GAIN_ENABLE], "General");
    EXPECT_EQ(owner[AUXILIARY_SYSTEM_GAIN], "GeneralEndpoint");
    EXPECT_EQ(owner[IEQ_ENABLE], "Profile");
    EXPECT_EQ(owner[GRAPHIC_EQUALIZER_ENABLE], "ProfileEndpoint");
    EXPECT_EQ(owner[OUTPUT_MIX_MATRIX], "Tuning");
    EXPECT_EQ(owner[GEQ_GAIN], "GeqPreset");
    EXPECT_EQ(owner.count(SYSTEM_GAIN) + owner.count(MI_DIALOG_ENHANCER_STEERING_ENABLE), 0u);
}

}  // namespace
}  // namespace ovela
