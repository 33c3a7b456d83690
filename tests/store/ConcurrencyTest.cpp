// The store under several threads: queries while another thread reloads it,
// caches on the process-wide store sending in parallel, each to its own
// effect, and stores of their own loading at once. Run under ThreadSanitizer as well as in the
// plain and the AddressSanitizer builds.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "../cache/RecordingEffect.h"
#include "AudioDevices.h"
#include "PackedWords.h"
#include "ProfileParamArray.h"
#include "ProfileParamCache.h"
#include "TempFile.h"
#include "TuningFileText.h"
#include "XmlNodes.h"

namespace ovela {
namespace {

using testing::EffectCall;
using testing::entriesOf;
using ::testing::NiceMock;
using testing::packed;
using testing::profile;
using testing::profileWords;
using testing::RecordingEffect;
using testing::sampleFile;
using testing::sends;
using testing::TempFile;
using testing::tuning;
using testing::tuningFile;
using testing::tuningList;
using testing::tuningNames;
using testing::tuningWords;

constexpr int kReaders = 3;
constexpr int kReloads = 200;
constexpr int kCaches = 4;
constexpr int kRoundsPerCache = 10;

// Every profile holds `base` + its id, the general array an IEQ preset, and
// two usb tunings hold `base` + 1 and + 2; `rowLength` sets the length of the
// profiles' metadata row, and so the size of their arrays.
std::string tuningFileWith(int base, int rowLength) {
    std::string row = "1";
    for (int i = 1; i < rowLength; ++i) {
        row += ",1";
    }
    std::string sections;
    for (int id = kFirstProfileId; id <= kLastProfileId; ++id) {
        sections += profile(id, "            <ieq-amount value=\"" + std::to_string(base + id) +
                                    "\"/>\n            <drc-metadata data=\"" + row + "\"/>\n");
    }
    sections +=
        "    <preset type=\"ieq\" id=\"ieq_warm\">\n        <ieq>\n            <bands>\n"
        "                <band_ieq frequency=\"100\" target=\"" +
        std::to_string(base) + "\"/>\n            </bands>\n        </ieq>\n    </preset>\n";
    for (int index = 1; index <= 2; ++index) {
        sections += tuning(
            "name=\"t" + std::to_string(index) + "\" endpoint_type=\"usb\"",
            "            <bass-enhancer-boost value=\"" + std::to_string(base + index) + "\"/>\n");
    }
    return tuningFile(sections);
}

// What one store gives for every array that the files above fill.
struct Arrays {
    std::vector<std::vector<int32_t>> profiles;
    std::vector<std::vector<int32_t>> tunings;
};

const char* const kTunings[] = {"t1", "t2"};

Arrays arraysOf(ProfileParamArray& store) {
    Arrays arrays;
    for (OvlProfileId id = kGeneralProfileId; id <= kLastProfileId; ++id) {
        arrays.profiles.push_back(profileWords(store, id));
    }
    for (const char* name : kTunings) {
        arrays.tunings.push_back(tuningWords(store, name));
    }
    return arrays;
}

TEST(ConcurrencyTest, QueriesDuringReloadsGetWholeArraysOfOneFileOrTheOther) {
    // Arrays of the same sizes in both files: a caller asks for the size and
    // then for the contents, and the store only guarantees each answer alone.
    TempFile first(tuningFileWith(0, 8));
    TempFile second(tuningFileWith(100, 8));
    ProfileParamArray store(first.path());
    const Arrays firstArrays = arraysOf(store);
    ProfileParamArray secondStore(second.path());
    const Arrays secondArrays = arraysOf(secondStore);
    ASSERT_EQ(firstArrays.profiles[1],
              packed(0, {{kDeviceAll, kyrCode("drcm"), {1, 1, 1, 1, 1, 1, 1, 1}},
                         {kDeviceAll, kyrCode("iea"), {0}}}));
    ASSERT_NE(firstArrays.tunings, secondArrays.tunings);
    const std::string usbList = tuningList(store, ENDPOINT_USB);
    ASSERT_EQ(usbList, std::string("t1 t2", 6));

    std::atomic<bool> reloading{true};
    std::atomic<int> tornArrays{0};
    std::atomic<int> wrongLists{0};
    std::vector<std::thread> readers;
    for (int reader = 0; reader < kReaders; ++reader) {
        readers.emplace_back([&] {
            do {
                const Arrays seen = arraysOf(store);
                for (size_t i = 0; i < seen.profiles.size(); ++i) {
                    tornArrays += seen.profiles[i] != firstArrays.profiles[i] &&
                                  seen.profiles[i] != secondArrays.profiles[i];
                }
                for (size_t i = 0; i < seen.tunings.size(); ++i) {
                    tornArrays += seen.tunings[i] != firstArrays.tunings[i] &&
                                  seen.tunings[i] != secondArrays.tunings[i];
                }
                wrongLists += tuningList(store, ENDPOINT_USB) != usbList;
            } while (reloading);
        });
    }
    for (int reload = 0; reload < kReloads; ++reload) {
        store.loadXMLFile(reload % 2 == 0 ? second.path() : first.path());
    }
    reloading = false;
    for (std::thread& reader : readers) {
        reader.join();
    }

    EXPECT_EQ(tornArrays, 0);
    EXPECT_EQ(wrongLists, 0);
    EXPECT_EQ(arraysOf(store).profiles, firstArrays.profiles);
}

// Everything that a cache can send for the arrays of the process-wide store:
// each profile, each listed tuning of each endpoint, and two resent parameters.
std::vector<EffectCall> sendEverything() {
    NiceMock<RecordingEffect> effect(0);
    ProfileParamCache cache;
    ProfileParamArray& store = ProfileParamArray::getInstance();
    for (OvlProfileId id = kGeneralProfileId; id <= kLastProfileId; ++id) {
        cache.setProfile(id, &effect);
    }
    for (size_t index = 0; index < kNumEndpoints; ++index) {
        const auto endpoint = static_cast<Endpoint>(index);
        for (const std::string& name : tuningNames(store, endpoint)) {
            cache.setEndpointTuning(endpoint, name, &effect, false);
        }
    }
    cache.setProfile(8, &effect);
    cache.resetParam(kyrCode("vrcr"), &effect);
    cache.resetParam(kyrCode("iea"), &effect);
    return effect.calls;
}

TEST(ConcurrencyTest, CachesOnTheProcessStoreSendTheSameInParallelThreads) {
    ProfileParamArray::getInstance().loadXMLFile(sampleFile());
    const std::vector<EffectCall> expected = sendEverything();
    ASSERT_GT(expected.size(), 1000u);

    std::atomic<int> differing{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kCaches; ++thread) {
        threads.emplace_back([&] {
            for (int round = 0; round < kRoundsPerCache; ++round) {
                differing += sendEverything() != expected;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }

    EXPECT_EQ(differing, 0);
}

// The cache asks the store for an array's size, allocates, then copies; a
// reload in between that makes the array larger must not make the copy run
// past the buffer (AddressSanitizer catches it), nor send a mixed array.
TEST(ConcurrencyTest, CachesSendingWhileTheStoreReloadsLargerArraysStayInTheirBuffers) {
    TempFile small(tuningFileWith(0, 8));
    TempFile large(tuningFileWith(0, 1000));
    ProfileParamArray smallStore(small.path());
    ProfileParamArray largeStore(large.path());
    const std::vector<EffectCall> smallSend = sends(entriesOf(profileWords(smallStore, 3)));
    const std::vector<EffectCall> largeSend = sends(entriesOf(profileWords(largeStore, 3)));
    ProfileParamArray& store = ProfileParamArray::getInstance();
    store.loadXMLFile(small.path());

    std::atomic<bool> reloading{true};
    std::atomic<int> wrongSends{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kCaches; ++thread) {
        threads.emplace_back([&] {
            ProfileParamCache cache;
            do {
                NiceMock<RecordingEffect> effect(0);
                cache.setProfile(3, &effect);
                wrongSends += effect.calls != smallSend && effect.calls != largeSend;
            } while (reloading);
        });
    }
    for (int reload = 0; reload < kReloads; ++reload) {
        store.loadXMLFile(reload % 2 == 0 ? large.path() : small.path());
    }
    reloading = false;
    for (std::thread& thread : threads) {
        thread.join();
    }

    EXPECT_EQ(wrongSends, 0);
}

// Stores of their own loading in two threads at once: every store holds the
// arrays of its file.
TEST(ConcurrencyTest, StoresLoadingInTwoThreadsEachHoldTheirFile) {
    TempFile first(tuningFileWith(10, 8));
    TempFile second(tuningFileWith(20, 8));
    const std::vector<int32_t> expected[] = {
        profileWords(*std::make_unique<ProfileParamArray>(first.path()), 3),
        profileWords(*std::make_unique<ProfileParamArray>(second.path()), 3)};
    std::atomic<int> wrongLoads{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 2; ++thread) {
        threads.emplace_back([&, thread] {
            const std::string& path = thread == 0 ? first.path() : second.path();
            for (int load = 0; load < kReloads / 4; ++load) {
                ProfileParamArray store(path);
                wrongLoads += profileWords(store, 3) != expected[thread];
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrongLoads, 0);
}

// The audio server parses its own configuration with libxml2 too: a load must
// neither reset libxml2 under that thread nor make it wait.
TEST(ConcurrencyTest, LoadsLeaveAnotherLibxml2UserOfTheProcessAlone) {
    static const char kConfig[] = "<config>\n    <item name=\"gain\" value=\"7\"/>\n</config>\n";
    auto parsesWell = [] {
        xml::Document document(
            xmlReadMemory(kConfig, sizeof(kConfig) - 1, "config.xml", nullptr, 0));
        const xmlNode* root = document ? xmlDocGetRootElement(document.get()) : nullptr;
        const xmlNode* item =
            root != nullptr && root->children != nullptr ? root->children->next : nullptr;
        if (item == nullptr || item->type != XML_ELEMENT_NODE) {
            return false;
        }
        xmlChar* value = xmlGetProp(item, BAD_CAST "value");
        const bool expected = value != nullptr && xmlStrEqual(value, BAD_CAST "7");
        xmlFree(value);
        return expected;
    };
    ProfileParamArray store(sampleFile());
    const std::vector<int32_t> general = profileWords(store, kGeneralProfileId);

    std::atomic<bool> loading{true};
    std::atomic<int> parses{0};
    std::atomic<int> failedParses{0};
    std::thread other([&] {
        do {
            failedParses += !parsesWell();
            ++parses;
        } while (loading);
    });
    for (int load = 0; load < kReloads; ++load) {
        store.loadXMLFile(sampleFile());
    }
    loading = false;
    other.join();

    EXPECT_GT(parses, 0);
    EXPECT_EQ(failedParses, 0);
    EXPECT_EQ(profileWords(store, kGeneralProfileId), general);
}

}  // namespace
}  // namespace ovela
