// The same file gives the same bytes in every process: the order of the
// entries, the tunings' ordinals and which of two tunings of one name
// survives follow the file, never where the heap happened to put an entity.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "AudioDevices.h"
#include "PackedWords.h"
#include "ProfileParamArray.h"
#include "TempFile.h"
#include "TuningFileText.h"

namespace ovela {
namespace {

using testing::endpoint;
using testing::packed;
using testing::profile;
using testing::Snapshot;
using testing::snapshotOf;
using testing::TempFile;
using testing::tuning;
using testing::tuningFile;

constexpr int kProcesses = 20;

std::string setting(const char* element, int value) {
    return "                <" + std::string(element) + " value=\"" + std::to_string(value) +
           "\"/>\n";
}

std::string ieqPreset(const char* id, int target) {
    return "    <preset type=\"ieq\" id=\"" + std::string(id) +
           "\">\n        <ieq>\n            <bands>\n"
           "                <band_ieq frequency=\"100\" target=\"" +
           std::to_string(target) + "\"/>\n            </bands>\n        </ieq>\n    </preset>\n";
}

// Every kind of entity several times, in an order that no heap would choose:
// two profiles 2, endpoints, presets, and tunings of which two share a name.
std::string fileWithDuplicates() {
    std::string sections;
    for (int copy = 1; copy <= 2; ++copy) {
        sections +=
            profile(2, setting("ieq-amount", copy) + endpoint("usb", setting("system-gain", copy)) +
                           endpoint("speaker", setting("system-gain", 10 + copy)));
    }
    sections += ieqPreset("ieq_warm", 3) + ieqPreset("ieq_detailed", 1) + ieqPreset("ieq_warm", 4);
    sections += tuning("name=\"b\" endpoint_type=\"usb\"", setting("bass-enhancer-boost", 1)) +
                tuning("name=\"a\" endpoint_type=\"usb\"", setting("bass-enhancer-boost", 2)) +
                tuning("name=\"b\" endpoint_type=\"usb\"", setting("bass-enhancer-boost", 3));
    return tuningFile(sections);
}

std::string serialized(const Snapshot& snapshot) {
    std::string text;
    for (const auto& [what, words] : snapshot.arrays) {
        text += what + ":";
        for (int32_t word : words) {
            text += " " + std::to_string(word);
        }
        text += "\n";
    }
    for (const auto& [endpointName, names] : snapshot.tunings) {
        for (const std::string& name : names) {
            text += endpointName + " lists " + name + "\n";
        }
    }
    return text;
}

// Loads `path` in a child process whose heap is first cut up by allocations
// of random sizes, some freed again, and returns what its store holds.
std::string loadInAnotherHeap(const std::string& path, unsigned seed) {
    int channel[2];
    if (pipe(channel) != 0) {
        return "no pipe";
    }
    const pid_t child = fork();
    if (child == 0) {
        close(channel[0]);
        std::mt19937 random(seed);
        std::vector<void*> blocks;
        for (int i = 0; i < 2000; ++i) {
            blocks.push_back(malloc(random() % 512 + 1));
            if (random() % 3 == 0) {
                std::swap(blocks[random() % blocks.size()], blocks.back());
                free(blocks.back());
                blocks.pop_back();
            }
        }
        ProfileParamArray store(path);
        const std::string text = serialized(snapshotOf(store));
        const bool written =
            write(channel[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
        _exit(written ? 0 : 1);
    }
    close(channel[1]);
    std::string text;
    char buffer[4096];
    ssize_t count;
    while ((count = read(channel[0], buffer, sizeof(buffer))) > 0) {
        text.append(buffer, count);
    }
    close(channel[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? text : "the child failed";
}

TEST(LoadOrderTest, EveryProcessGetsTheSameBytesInTheOrderOfTheFile) {
    TempFile file(fileWithDuplicates());
    ProfileParamArray store(file.path());
    const Snapshot here = snapshotOf(store);

    // The file's order decides: its entries, the ordinals, the later "b".
    EXPECT_EQ(here.arrays.at("profile 2"), packed(2, {{kDeviceAll, kyrCode("iea"), {1}},
                                                      {kDeviceAll, kyrCode("iea"), {2}},
                                                      {kDeviceUsb, kyrCode("vol"), {1}},
                                                      {kDeviceUsb, kyrCode("hvm"), {1}},
                                                      {kDeviceUsb, kyrCode("svm"), {1}},
                                                      {kDeviceSpeaker, kyrCode("vol"), {11}},
                                                      {kDeviceSpeaker, kyrCode("hvm"), {1}},
                                                      {kDeviceSpeaker, kyrCode("svm"), {1}},
                                                      {kDeviceUsb, kyrCode("vol"), {2}},
                                                      {kDeviceUsb, kyrCode("hvm"), {1}},
                                                      {kDeviceUsb, kyrCode("svm"), {1}},
                                                      {kDeviceSpeaker, kyrCode("vol"), {12}},
                                                      {kDeviceSpeaker, kyrCode("hvm"), {1}},
                                                      {kDeviceSpeaker, kyrCode("svm"), {1}},
                                                      {kDeviceUsb, kyrCode("dom"), {0, 1, 2}},
                                                      {kDeviceSpeaker, kyrCode("dom"), {0, 0, 1}},
                                                      {kDeviceUsb, kyrCode("dom"), {0, 1, 2}},
                                                      {kDeviceSpeaker, kyrCode("dom"), {0, 0, 1}}}));
    EXPECT_EQ(here.arrays.at("profile -1"),
              packed(-1, {{kDeviceAll, kyrCode("iebs"), {1, 100, 3}},
                          {kDeviceAll, kyrCode("iebs"), {1, 100, 1}},
                          {kDeviceAll, kyrCode("iebs"), {1, 100, 4}}}));
    EXPECT_EQ(here.arrays.at("tuning a"), packed(1, {{kDeviceUsb, kyrCode("beb"), {2}}}));
    EXPECT_EQ(here.arrays.at("tuning b"), packed(2, {{kDeviceUsb, kyrCode("beb"), {3}}}));

    const std::string expected = serialized(here);
    for (unsigned process = 0; process < kProcesses; ++process) {
        EXPECT_EQ(loadInAnotherHeap(file.path(), process), expected) << "process " << process;
    }
}

}  // namespace
}  // namespace ovela
