// Where the reader places its entities: one after the other, at growing
// addresses, each whole, also past the room reserved for them.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "EntityArena.h"
#include "Profile.h"

namespace ovela {
namespace {

TEST(EntityArenaTest, EntitiesFollowOneAnotherAndStayWholePastTheReservation) {
    constexpr int kReserved = 100;
    constexpr int kMade = 5000;
    EntityArena arena;
    arena.reserve(kReserved * sizeof(Profile));
    std::vector<Profile*> profiles;
    for (int id = 0; id < kMade; ++id) {
        profiles.push_back(arena.make<Profile>(id, "p" + std::to_string(id), PRESET_TYPE_WARM));
    }
    for (int i = 1; i < kReserved; ++i) {
        EXPECT_GT(profiles[i], profiles[i - 1]);
    }
    int whole = 0;
    for (int id = 0; id < kMade; ++id) {
        whole += profiles[id]->getProfileId() == id &&
                 profiles[id]->getName() == "p" + std::to_string(id);
        EntityArena::destroy(profiles[id]);
    }
    EXPECT_EQ(whole, kMade);
}

}  // namespace
}  // namespace ovela
