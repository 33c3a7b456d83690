#include <gtest/gtest.h>
#include <ovela/ProfileParamArray.h>

#include <string>
#include <vector>

#include "LoadReport.h"
#include "ReportedLoads.h"
#include "TempFile.h"
#include "TuningFileCorpus.h"

namespace ovela {
namespace {

// Every array of a store as bytes: the profiles, the general array and the
// tunings that the speaker and the headphone list.
std::vector<std::vector<uint8_t>> arraysOf(ProfileParamArray& store) {
    std::vector<std::vector<uint8_t>> arrays;
    for (int profile = kGeneralProfileId; profile <= kLastProfileId; ++profile) {
        std::vector<uint8_t> bytes(store.copyProfileParams(profile, nullptr, 0));
        store.copyProfileParams(profile, bytes.data(), static_cast<uint32_t>(bytes.size()));
        arrays.push_back(std::move(bytes));
    }
    for (const char* tuning : {"speaker", "headphone", "default"}) {
        std::vector<uint8_t> bytes(store.copyTuningParams(tuning, nullptr, 0));
        store.copyTuningParams(tuning, bytes.data(), static_cast<uint32_t>(bytes.size()));
        arrays.push_back(std::move(bytes));
    }
    return arrays;
}

std::vector<std::string> findingsOf(const LoadReport& report) {
    std::vector<std::string> found;
    for (const LoadFinding& finding : report.findings()) {
        found.push_back(finding.rule + " " + std::to_string(finding.line) + ":" +
                        std::to_string(finding.column) + " " + finding.message);
    }
    return found;
}

TEST(LoadXMLTextTest, TextLoadsAsTheFileThatHoldsItWithTheSameReport) {
    const std::string text = testing::sampleText();
    LoadReport fromFile;
    LoadReport fromText;
    std::unique_ptr<ProfileParamArray> fileStore;
    std::unique_ptr<ProfileParamArray> textStore;
    {
        const ReportedLoads reported(&fromFile);
        fileStore = std::make_unique<ProfileParamArray>(testing::sampleFile());
    }
    {
        const ReportedLoads reported(&fromText);
        textStore = std::make_unique<ProfileParamArray>(text.data(), text.size(), "sample");
    }
    EXPECT_EQ(arraysOf(*textStore), arraysOf(*fileStore));
    EXPECT_EQ(findingsOf(fromText), findingsOf(fromFile));
    EXPECT_GT(arraysOf(*textStore)[1].size(), 8u);  // profile 0 has entries
}

TEST(LoadXMLTextTest, TextPastTheLimitOrBrokenLeavesTheStoreAsItWas) {
    const std::string text = testing::sampleText();
    ProfileParamArray store(text.data(), text.size(), "sample");
    const auto before = arraysOf(store);

    LoadReport report;
    {
        const ReportedLoads reported(&report);
        const std::string huge((64 << 20) + 1, ' ');
        store.loadXMLText(huge.data(), huge.size(), "huge.xml");
        store.loadXMLText(nullptr, 10, "null.xml");
        const std::string broken = testing::replaced(text, "</ovela_tuning>", "");
        store.loadXMLText(broken.data(), broken.size(), "broken.xml");
    }
    EXPECT_EQ(arraysOf(store), before);
    std::vector<std::string> rules;
    for (const LoadFinding& finding : report.findings()) {
        rules.push_back(finding.rule);
    }
    EXPECT_EQ(rules, (std::vector<std::string>{"file-size", "file-unreadable", "xml-syntax"}));
}

}  // namespace
}  // namespace ovela
