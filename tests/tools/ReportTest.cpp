#include <gtest/gtest.h>

#include "TempFile.h"
#include "ToolRun.h"

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

}  // namespace
}  // namespace ovela::tune
