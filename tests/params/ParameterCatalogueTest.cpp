#include <gtest/gtest.h>

#include <cstring>

#include "Parameter.h"

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

}  // namespace
}  // namespace ovela
