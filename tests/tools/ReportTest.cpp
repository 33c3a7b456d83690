#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "TempFile.h"
#include "ToolRun.h"
#include "TuningFileCorpus.h"

namespace ovela::tune {
namespace {

using ovela::testing::fileText;
using ovela::testing::TempFile;

// The page of a file that loads links each finding to the section it is
// about; the page of one that does not load holds the findings alone.
TEST(OvelaTuneReportTest, FindingsLeadToTheirSections) {
    TempFile loads(R"(<tuning_file>
    <profile id="2" name="music">
        <settings>
            <endpoint_type id="headphone">
                <volume-leveler-amout value="7"/>
            </endpoint_type>
        </settings>
        <include preset="off"/>
    </profile>
    <tuning name="speaker" endpoint_type="speaker">
        <data>
            <regulator-tuning>
                <band frequency="100" threshold_low="-200" threshold_high="-100" isolated_band="true"/>
            </regulator-tuning>
        </data>
    </tuning>
</tuning_file>
)");
    TempFile page("", ".html");
    ToolRun run = runOvelaTune({"report", loads.path(), "-o", page.path()});
    EXPECT_EQ(run.exitCode, kExitOk) << run.err;
    const std::string html = fileText(page.path());
    EXPECT_NE(html.find("<li class=\"warning\"><a href=\"#profile-2\">line 5</a>: warning: "
                        "unknown element &lt;volume-leveler-amout&gt;"),
              std::string::npos)
        << html;
    EXPECT_NE(html.find("<tr id=\"profile-2\">"), std::string::npos);
    EXPECT_NE(html.find("<svg data-chart=\"tuning-speaker-regulator-tuning\""), std::string::npos);
    EXPECT_EQ(runOvelaTune({"report", loads.path()}).out, html);

    TempFile broken("<tuning_file>\n<profile id=\"1\">\n</tuning_file>\n");
    ToolRun failed = runOvelaTune({"report", broken.path()});
    EXPECT_EQ(failed.exitCode, kExitDoesNotLoad);
    EXPECT_NE(failed.out.find("<li class=\"error\">line 3: error: not well-formed XML"),
              std::string::npos)
        << failed.out;
    EXPECT_EQ(failed.out.find("<svg"), std::string::npos);
    EXPECT_EQ(failed.out.find("<table"), std::string::npos);
}

// The values of the series `name` in a page, as "x,y" pairs, and whether the
// effect receives them; the first series of that name in the page.
struct DrawnSeries {
    std::vector<std::string> points;
    std::string sent;
    size_t at;
};

DrawnSeries drawnSeries(const std::string& html, const std::string& name) {
    const size_t at = html.find("<g data-series=\"" + name + "\"");
    if (at == std::string::npos) {
        return {{}, "", at};
    }
    auto attribute = [&](const std::string& which) {
        const size_t start = html.find(which + "=\"", at) + which.size() + 2;
        return html.substr(start, html.find('"', start) - start);
    };
    std::vector<std::string> points;
    std::istringstream values(attribute("data-values"));
    for (std::string point; values >> point;) {
        points.push_back(point);
    }
    return {points, attribute("data-sent"), at};
}

// A list that the effect does not receive is drawn dashed, from the rows that
// give both of its values: a band without a target moves no other band. What
// the effect never receives lies under what it does.
TEST(OvelaTuneReportTest, DrawsWhatTheArraysCarryRowByRow) {
    const std::string sample = fileText(testing::sampleFile());
    TempFile file(testing::editedOnce(sample, "<band_ieq frequency=\"1098\" target=\"94\"/>",
                                      "<band_ieq frequency=\"1098\"/>"));
    ToolRun run = runOvelaTune({"report", file.path()});
    ASSERT_EQ(run.exitCode, kExitOk) << run.err;

    // The file's own rows of the detailed preset, but the one without a target.
    const size_t start = sample.find("id=\"ieq_detailed\"");
    const size_t end = sample.find("</preset>", start);
    std::vector<std::string> rows;
    auto valueAfter = [&](const std::string& name, size_t from) {
        const size_t at = sample.find(name + "=\"", from) + name.size() + 2;
        return sample.substr(at, sample.find('"', at) - at);
    };
    for (size_t at = sample.find("<band_ieq", start); at < end;
         at = sample.find("<band_ieq", at + 1)) {
        const std::string frequency = valueAfter("frequency", at);
        if (frequency != "1098") {
            rows.push_back(frequency + "," + valueAfter("target", at));
        }
    }
    const DrawnSeries detailed = drawnSeries(run.out, "detailed");
    EXPECT_EQ(detailed.sent, "false");
    EXPECT_EQ(detailed.points, rows);
    EXPECT_EQ(drawnSeries(run.out, "warm").sent, "true");

    const DrawnSeries sent = drawnSeries(run.out, "gain_left");
    const DrawnSeries neverSent = drawnSeries(run.out, "gain_left_surround");
    EXPECT_EQ(sent.sent, "true");
    EXPECT_EQ(neverSent.sent, "false");
    EXPECT_LT(neverSent.at, sent.at);
}

}  // namespace
}  // namespace ovela::tune
