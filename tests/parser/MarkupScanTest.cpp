// The look at a document before libxml2 parses it: where an element may carry
// more attributes than a tuning file's, however the file writes them.

#include <gtest/gtest.h>

#include <string>

#include "MarkupScan.h"
#include "TuningFileCorpus.h"

namespace ovela {
namespace {

using testing::attributes;
using testing::replaced;
using testing::utf16;

TEST(MarkupScanTest, CountsAttributesHoweverTheFileWritesThem) {
    const std::string widest = "<e" + attributes(256) + "/>";
    const std::string crowded = "<e" + attributes(257, '\'') + "/>";
    const std::string longComment = "<!-- " + std::string(100000, 'x') + " -->\n";
    const struct {
        const char* what;
        std::string document;
        long crowdedLine;
    } cases[] = {
        {"the widest element allowed", "<r>\n" + widest + "\n</r>", 0},
        {"one attribute more", "<r>\n\n" + crowded + "\n</r>", 3},
        {"'=' inside values", "<r>\n<e a=\"" + std::string(1000, '=') + "\"/>\n</r>", 0},
        {"spaces around '='", "<r>\n" + replaced(crowded, "=", " \n= ") + "</r>", 2},
        {"lines ended by CR", "<r>\r\r" + crowded + "</r>", 3},
        {"lines ended by CR LF", "<r>\r\n\r\n" + crowded + "</r>", 3},
        {"after a long comment", longComment + crowded, 2},
        {"in an entity's text as character references",
         "<!DOCTYPE r [\n<!ENTITY e \"" + replaced(replaced(crowded, "<", "&#60;"), "'", "&#39;") +
             "\">\n]>\n<r>&e;</r>",
         2},
        {"with every '=' a character reference",
         "<!DOCTYPE r [\n<!ENTITY e \"" + replaced(replaced(crowded, "<", "&#x3C;"), "=", "&#61;") +
             "\">\n]>\n<r>&e;</r>",
         2},
        {"written twice over in a parameter entity",
         "<!DOCTYPE r [\n<!ENTITY % p \"<!ENTITY e '" +
             replaced(replaced(replaced(crowded, "<", "&#38;#60;"), "=", "&#38;#61;"), "'",
                      "&#38;#34;") +
             "'>\">\n%p;\n]>\n<r>&e;</r>",
         2},
        {"in UTF-16", utf16("<r>\n" + crowded + "</r>"), 2},
        {"in UTF-16, past the first piece that is decoded",
         utf16("<r>\n" + longComment + crowded + "</r>"), 3},
        {"with every '=' a character reference in hexadecimal",
         "<!DOCTYPE r [\n<!ENTITY e \"" + replaced(replaced(crowded, "<", "&#60;"), "=", "&#x3d;") +
             "\">\n]>\n<r>&e;</r>",
         2},
        {"after a byte order mark, in an encoding that the declaration names",
         "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-7\"?>\n<r>\n" +
             replaced(crowded, "=", "+AD0-") + "</r>",
         3},
        {"in an encoding that the declaration names",
         "<?xml version=\"1.0\" encoding=\"UTF-7\"?>\n<r>\n" + replaced(crowded, "=", "+AD0-") +
             "</r>",
         3},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(scanMarkup(c.document).crowdedLine, c.crowdedLine) << c.what;
    }
}

TEST(MarkupScanTest, CountsEveryPlaceWhereAnElementMayStart) {
    EXPECT_EQ(scanMarkup("<r>\n  <a/>\n  <b x=\"1\"></b>\n</r>\n").openings, 5u);
    EXPECT_EQ(scanMarkup(utf16("<r><a/></r>")).openings, 3u);
    EXPECT_EQ(scanMarkup("").openings, 0u);
}

}  // namespace
}  // namespace ovela
