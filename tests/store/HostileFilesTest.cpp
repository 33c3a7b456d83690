// Tuning files written to hurt the loader: entity tricks, sheer size, and
// values past the room of every array. Each must give a clear result, under
// the sanitizers too; none may take the process down.

#include <gtest/gtest.h>
#include <libxml/xmlIO.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <ostream>
#include <string>
#include <vector>

#include "AudioDevices.h"
#include "LoadReport.h"
#include "LogCapture.h"
#include "PackedWords.h"
#include "ProfileParamArray.h"
#include "ReportedLoads.h"
#include "TempFile.h"
#include "TuningFileCorpus.h"
#include "TuningFileText.h"

namespace ovela {
namespace {

using testing::attributes;
using testing::billionLaughs;
using testing::fileText;
using testing::LogCapture;
using testing::numbers;
using testing::packed;
using testing::profile;
using testing::profileWords;
using testing::sampleFile;
using testing::Snapshot;
using testing::snapshotOf;
using testing::TempFile;
using testing::tuning;
using testing::tuningFile;
using testing::tuningNames;
using testing::tuningWords;

constexpr char kTag[] = "OvlProfileParamArray";

std::string ieqPreset(int bands) {
    std::string rows;
    for (int i = 0; i < bands; ++i) {
        rows += "                <band_ieq frequency=\"" + std::to_string(i) + "\" target=\"1\"/>\n";
    }
    return "    <preset type=\"ieq\" id=\"ieq_warm\">\n        <ieq>\n            <bands>\n" +
           rows + "            </bands>\n        </ieq>\n    </preset>\n";
}

// The values of numbers(count).
std::vector<int32_t> rowValues(int count) {
    std::vector<int32_t> values;
    for (int i = 0; i < count; ++i) {
        values.push_back(i % 100);
    }
    return values;
}

bool anyArrayHolds(const Snapshot& snapshot, int32_t word) {
    for (const auto& [what, words] : snapshot.arrays) {
        if (std::find(words.begin(), words.end(), word) != words.end()) {
            return true;
        }
    }
    return false;
}

TEST(HostileFilesTest, EntityExpansionFailsTheLoadAndKeepsWhatTheStoreHeld) {
    const std::string placements[] = {
        profile(1, "            <ieq-amount value=\"&lol9;\"/>\n"),
        profile(1, "            &lol9;\n            <ieq-amount value=\"3\"/>\n"),
    };
    for (const std::string& placement : placements) {
        SCOPED_TRACE(placement);
        TempFile hostile(tuningFile(placement, billionLaughs()));
        ProfileParamArray store(sampleFile());
        const Snapshot before = snapshotOf(store);
        ASSERT_GT(before.arrays.at("profile 1").size(), 2u);

        LogCapture log;
        store.loadXMLFile(hostile.path());
        EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR),
                  std::vector<std::string>{"XML parses error!!"});
        EXPECT_EQ(snapshotOf(store), before);
    }
}

// An entity referenced many times inside one attribute: the file is 20 KB,
// the attribute's text 20 MB once its references are expanded. The reader
// stops at its bound and reads the value as empty text.
TEST(HostileFilesTest, AttributeBuiltFromEntityReferencesStaysWithinBoundedMemory) {
    std::string references;
    for (int i = 0; i < 2000; ++i) {
        references += "&big;";
    }
    TempFile hostile(tuningFile(
        profile(1, "            <ieq-amount value=\"" + references + "\"/>\n"),
        "<!DOCTYPE tuning_file [\n    <!ENTITY big \"" + std::string(10000, '7') + "\">\n]>\n"));
    LogCapture log;
    // Resets the process's peak resident size to its current one.
    FILE* clearRefs = fopen("/proc/self/clear_refs", "w");
    ASSERT_NE(clearRefs, nullptr);
    fputs("5", clearRefs);
    fclose(clearRefs);
    auto statusField = [](const char* field) {
        std::ifstream status("/proc/self/status");
        std::string line;
        while (std::getline(status, line)) {
            if (line.rfind(field, 0) == 0) {
                return atol(line.c_str() + strlen(field));
            }
        }
        return -1L;
    };
    const long baselineKb = statusField("VmRSS:");

    ProfileParamArray store(hostile.path());

    EXPECT_LT(statusField("VmHWM:") - baselineKb, 16 * 1024);
    EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_ERROR),
              (std::vector<std::string>{"expandedValueOf() value of <ieq-amount> passes 1048576 "
                                        "bytes or 1024 entity references: read as empty"}));
    EXPECT_EQ(profileWords(store, 1), packed(1, {{kDeviceAll, kyrCode("iea"), {0}}}));
}

TEST(HostileFilesTest, ExternalEntitiesAreNeverRead) {
    // A local file that a careless loader would pull in, with a number that
    // no array holds otherwise.
    constexpr int32_t kSecret = 731953;
    TempFile secret("<ieq-amount value=\"" + std::to_string(kSecret) + "\"/>\n");
    TempFile declarations(
        "<!ENTITY inner \"<ieq-amount value='" + std::to_string(kSecret) + "'/>\">\n", ".dtd");
    const std::string settings = "            <ieq-amount value=\"7\"/>\n";
    const std::vector<int32_t> loaded = packed(1, {{kDeviceAll, kyrCode("iea"), {7}}});
    struct {
        std::string text;
        // What profile 1 holds: the file's own setting, or nothing when the
        // reference to an entity that was never read fails the load.
        std::vector<int32_t> profile1;
    } files[] = {
        {tuningFile(profile(1, settings + "            &secret;\n"),
                    "<!DOCTYPE tuning_file [\n    <!ENTITY secret SYSTEM \"file://" +
                        secret.path() + "\">\n]>\n"),
         loaded},
        {tuningFile(profile(1, settings + "            &secret;\n"),
                    "<!DOCTYPE tuning_file [\n    <!ENTITY secret SYSTEM \"" + secret.path() +
                        "\">\n]>\n"),
         loaded},
        {tuningFile(profile(1, settings),
                    "<!DOCTYPE tuning_file SYSTEM \"" + declarations.path() + "\">\n"),
         loaded},
        {tuningFile(profile(1, settings + "            &inner;\n"),
                    "<!DOCTYPE tuning_file [\n    <!ENTITY % outer SYSTEM \"" +
                        declarations.path() + "\">\n    %outer;\n]>\n"),
         {}},
    };
    for (const auto& file : files) {
        SCOPED_TRACE(file.text);
        TempFile tuningFile(file.text);
        LogCapture log;
        ProfileParamArray store(tuningFile.path());

        const Snapshot snapshot = snapshotOf(store);
        EXPECT_EQ(snapshot.arrays.at("profile 1"), file.profile1);
        EXPECT_FALSE(anyArrayHolds(snapshot, kSecret));
    }
}

TEST(HostileFilesTest, FiftyMegabytesOfNestedElementsLoadLikeTheFileWithoutThem) {
    // Blocks 200 levels deep, below the XML parser's own depth limit, with
    // long names so that the tree stays a fraction of the text.
    const std::string name = "nested-" + std::string(93, 'x');
    std::string block;
    for (int level = 0; level < 200; ++level) {
        block += "<" + name + ">";
    }
    for (int level = 0; level < 200; ++level) {
        block += "</" + name + ">";
    }
    block += "\n";
    // In four places, within the 64 MiB that a tuning file may take.
    constexpr size_t kTarget = 50u << 20;
    const size_t blocksPerPlace = kTarget / 4 / block.size() + 1;
    std::string junk;
    junk.reserve(blocksPerPlace * block.size());
    for (size_t i = 0; i < blocksPerPlace; ++i) {
        junk += block;
    }

    auto file = [](const std::string& filler) {
        return tuningFile(profile(2, "            <ieq-amount value=\"5\"/>\n" + filler +
                                         "            <endpoint_type id=\"usb\">\n"
                                         "                <system-gain value=\"4\"/>\n" +
                                         filler + "            </endpoint_type>\n") +
                          filler +
                          tuning("name=\"usb\" endpoint_type=\"usb\"",
                                 "            <bass-enhancer-boost value=\"9\"/>\n" + filler));
    };
    TempFile plain(file(""));
    const std::string hugeText = file(junk);
    ASSERT_GE(hugeText.size(), kTarget);
    TempFile huge(hugeText);

    LogCapture log;
    ProfileParamArray reference(plain.path());
    ProfileParamArray store(huge.path());

    const Snapshot expected = snapshotOf(reference);
    // The plain file's profile and tuning arrays hold what the file says.
    ASSERT_EQ(testing::entriesOf(expected.arrays.at("profile 2")).size(), 5u);
    ASSERT_EQ(expected.arrays.at("tuning usb"), packed(0, {{kDeviceUsb, kyrCode("beb"), {9}}}));
    EXPECT_EQ(snapshotOf(store), expected);
}

// A folder of paths that are no tuning file a load could read in time: a FIFO
// without a writer, a socket, sparse files of 64 MiB and one byte more, a
// gzip file that decompresses past 64 MiB. Removed with the object.
class HostilePaths {
  public:
    HostilePaths() {
        char folder[] = "/tmp/ovela-hostile-XXXXXX";
        mFolder = mkdtemp(folder) != nullptr ? folder : "";
        mkfifo(fifo().c_str(), 0600);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        strncpy(address.sun_path, socket().c_str(), sizeof(address.sun_path) - 1);
        mSocket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        bind(mSocket, reinterpret_cast<sockaddr*>(&address), sizeof(address));
        for (const std::string& path : {largest(), huge()}) {
            FILE* sparse = fopen(path.c_str(), "w");
            fputs("<tuning_file>", sparse);
            fclose(sparse);
        }
        truncate(largest().c_str(), 64 << 20);
        truncate(huge().c_str(), (64 << 20) + 1);
        // Written through libxml2's own gzip output, 70 MiB of comment.
        xmlOutputBuffer* out = xmlOutputBufferCreateFilename(bomb().c_str(), nullptr, 1);
        const std::string start = "<tuning_file>\n<!-- ";
        const std::string piece(1 << 20, 'x');
        xmlOutputBufferWrite(out, static_cast<int>(start.size()), start.data());
        for (int i = 0; i < 70; ++i) {
            xmlOutputBufferWrite(out, static_cast<int>(piece.size()), piece.data());
        }
        xmlOutputBufferClose(out);
    }
    ~HostilePaths() {
        close(mSocket);
        for (const std::string& path : {fifo(), socket(), largest(), huge(), bomb()}) {
            unlink(path.c_str());
        }
        rmdir(mFolder.c_str());
    }

    std::string folder() const { return mFolder; }
    std::string fifo() const { return mFolder + "/fifo.xml"; }
    std::string socket() const { return mFolder + "/socket.xml"; }
    std::string largest() const { return mFolder + "/largest.xml"; }
    std::string huge() const { return mFolder + "/huge.xml"; }
    std::string bomb() const { return mFolder + "/bomb.xml.gz"; }

  private:
    std::string mFolder;
    int mSocket = -1;
};

// Each path or input makes the load fail with its rule, leaving the store as
// it was, and returns at once; a load that hangs fails the suite by its
// timeout.
TEST(HostileFilesTest, PathsAndInputsThatCouldHangOrExhaustTheLoadFailAtOnce) {
    const HostilePaths paths;
    ASSERT_FALSE(paths.folder().empty());
    TempFile crowded(
        tuningFile("    <profile id=\"1\"" + attributes(100000) + ">\n    </profile>\n"));
    TempFile longRow(
        tuningFile(profile(1, "            <drc-metadata data=\"" + numbers(10000000) + "\"/>\n")));
    const struct {
        std::string path;
        const char* rule;
    } hostile[] = {
        {paths.fifo(), "file-unreadable"}, {paths.socket(), "file-unreadable"},
        {"/dev/zero", "file-unreadable"},  {paths.folder(), "file-unreadable"},
        {paths.largest(), "xml-syntax"},   {paths.huge(), "file-size"},
        {paths.bomb(), "document-size"},   {crowded.path(), "attribute-count"},
        {longRow.path(), "xml-syntax"},
    };
    ProfileParamArray store(sampleFile());
    const Snapshot before = snapshotOf(store);
    LogCapture log;
    for (const auto& input : hostile) {
        SCOPED_TRACE(input.path);
        LoadReport report;
        {
            const ReportedLoads reported(&report);
            store.loadXMLFile(input.path);
        }
        ASSERT_FALSE(report.findings().empty());
        EXPECT_EQ(report.findings().front().rule, input.rule);
        EXPECT_EQ(snapshotOf(store), before);
    }
    // The sample cut short anywhere is no document.
    const std::string sample = fileText(sampleFile());
    for (size_t length = 0; length < sample.size(); length += 997) {
        TempFile cut(sample.substr(0, length));
        store.loadXMLFile(cut.path());
        EXPECT_EQ(snapshotOf(store), before) << "the first " << length << " bytes";
    }
}

// One array of each kind, filled to the last word of its room by one entry,
// and the same file with one value more.
struct FullArray {
    const char* name;
    std::string (*file)(int extra);
    std::string key;
    std::vector<int32_t> words;
    std::string error;
};

std::ostream& operator<<(std::ostream& out, const FullArray& array) {
    return out << array.name;
}

// 1200 words: 2 of header, 3 of entry header, 1195 values.
std::string fullProfile(int extra) {
    return tuningFile(
        profile(4, "            <drc-metadata data=\"" + numbers(1195 + extra) + "\"/>\n"));
}

// 1200 words: 2 of header, 3 of entry header, then the band count, 597
// frequencies and 597 targets.
std::string fullGeneral(int extra) {
    return tuningFile(ieqPreset(597 + extra));
}

std::vector<int32_t> fullGeneralWords() {
    std::vector<int32_t> values = {597};
    for (int i = 0; i < 597; ++i) {
        values.push_back(i);
    }
    values.insert(values.end(), 597, 1);
    return packed(kGeneralProfileId, {{kDeviceAll, kyrCode("iebs"), values}});
}

// 1100 words: 2 of header, 3 of entry header, 1095 values.
std::string fullTuning(int extra) {
    return tuningFile(
        tuning("name=\"big\" endpoint_type=\"usb\"",
               "            <bass-mbdrc-tuning data=\"" + numbers(1095 + extra) + "\"/>\n"));
}

class ArrayRoomTest : public ::testing::TestWithParam<FullArray> {};

TEST_P(ArrayRoomTest, FullArrayLoadsAndOneValueMoreFailsTheWholeLoad) {
    const FullArray& array = GetParam();
    TempFile full(array.file(0));
    TempFile tooBig(array.file(1));

    ProfileParamArray store(full.path());
    const Snapshot before = snapshotOf(store);
    EXPECT_EQ(before.arrays.at(array.key), array.words);

    LogCapture log;
    store.loadXMLFile(tooBig.path());
    EXPECT_EQ(log.messages(kTag, ANDROID_LOG_ERROR), std::vector<std::string>{array.error});
    EXPECT_EQ(snapshotOf(store), before);
}

INSTANTIATE_TEST_SUITE_P(
    EveryBuilder, ArrayRoomTest,
    ::testing::Values(FullArray{"Profile", fullProfile, "profile 4",
                                packed(4, {{kDeviceAll, kyrCode("drcm"), rowValues(1195)}}),
                                "loadXMLFile() profile 4 does not fit in 1200 words"},
                      FullArray{"General", fullGeneral, "profile -1", fullGeneralWords(),
                                "loadXMLFile() profile -1 does not fit in 1200 words"},
                      FullArray{"Tuning", fullTuning, "tuning big",
                                packed(0, {{kDeviceUsb, kyrCode("bmdt"), rowValues(1095)}}),
                                "convertTuning() tuning big does not fit in 1100 words"}),
    [](const ::testing::TestParamInfo<FullArray>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace ovela
