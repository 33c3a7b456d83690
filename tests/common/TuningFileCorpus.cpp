#include "TuningFileCorpus.h"

#include <dirent.h>
#include <gtest/gtest.h>

#include "../parser/ParserTestSupport.h"
#include "TempFile.h"

namespace ovela::testing {

namespace {

std::string nested(int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += "<a> ";
    for (int i = 0; i < depth; ++i) text += "</a>";
    return text;
}

}  // namespace

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string utf16(const std::string& ascii) {
    std::string bytes = "\xff\xfe";
    for (char c : ascii) {
        bytes += c;
        bytes += '\0';
    }
    return bytes;
}

std::string attributes(int count, char quote) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += " a" + std::to_string(i) + "=" + quote + "1" + quote;
    }
    return text;
}

std::vector<MalformedInput> malformedInputs() {
    return {
        {"EmptyFile", "", -22},
        {"NotXml", "qrn-default", -22},
        {"BinaryBytes", std::string("\x00\x01\xfe\xff<", 5), -22},
        {"DeclarationOnly", "<?xml version=\"1.0\"?>\n", -22},
        {"TruncatedInATag", "<tuning_file>\n    <profile id=\"1", -22},
        {"AttributeWithoutValue", tuningFile("<profile id> </profile>"), -22},
        {"AttributeWithoutQuotes", tuningFile("<profile id=1/>"), -22},
        {"RepeatedAttribute", tuningFile(R"(<tuning name="a" name="b"/>)"), -22},
        {"WrongNesting", "<tuning_file> <profile> </tuning_file> </profile>", -22},
        {"UnknownEncoding", "<?xml version=\"1.0\" encoding=\"x-none\"?>\n<a/>", -22},
        {"NestedBeyondTheParserLimit", nested(300), -22},
        {"NestedDeeplyWithinTheLimit", tuningFile(nested(200)), 0},
        {"EmptySections", tuningFile("<format_version/> <general/> <profile/> <tuning/> <preset/>"),
         0},
        {"EmptyIeqPreset", tuningFile(R"(<preset type="ieq" id="ieq_off"/>)"), -22},
        {"SectionsOnOneLine",
         R"(<r><general><a/><endpoint_type id="usb"/></general><profile id="1"><s/>)"
         R"(<include preset="warm"/></profile><tuning name="t"><data/></tuning></r>)",
         0},
        {"SectionsNestedInEachOther", tuningFile(R"(<tuning name="t">
            <profile id="1"> <settings> <general> <settings/> </general> </settings> </profile>
            <tuning name="inner"> <data/> </tuning> </tuning>
            <profile id="2"> <tuning name="p"> <data/> </tuning> <preset type="geq" id="1"/>
            </profile>)"),
         0},
        {"CommentsAndCdataWhereElementsBelong", tuningFile(R"(
            <general> <!-- wrapper --> </general>
            <profile id="1"> <![CDATA[container]]> <?include preset="ieq_warm"?> </profile>
            <tuning name="t"> <!-- data --> </tuning>)"),
         0},
        {"EntityReferencesWhereElementsBelong", R"(<?xml version="1.0"?>
<!DOCTYPE tuning_file [
    <!ENTITY settings "<ieq-amount value='1'/>">
    <!ENTITY mix_matrix "<row c='1'/>">
]>
<tuning_file>
    <general> &settings; </general>
    <profile id="1"> &settings; &settings; </profile>
    <tuning name="t"> <data>
        <output-mode> &mix_matrix; </output-mode>
        <regulator-tuning> &mix_matrix; </regulator-tuning>
    </data> </tuning>
</tuning_file>
)",
         0},
        {"NumbersOutOfRange", tuningFile(R"(<tuning name="t" orientation="99999999999"> <data>
            <regulator-enable value="-99999999999"/>
            <regulator-stress-amount data="99999999999,-99999999999,2147483648"/>
            <regulator-tuning> <band frequency="99999999999"/> </regulator-tuning>
            </data> </tuning> <profile id="99999999999" name="big"> </profile>)"),
         0},
    };
}

std::string billionLaughs() {
    std::string doctype = "<!DOCTYPE tuning_file [\n    <!ENTITY lol0 \"lol\">\n";
    for (int level = 1; level <= 9; ++level) {
        std::string references;
        for (int i = 0; i < 10; ++i) {
            references += "&lol" + std::to_string(level - 1) + ";";
        }
        doctype += "    <!ENTITY lol" + std::to_string(level) + " \"" + references + "\">\n";
    }
    return doctype + "]>\n";
}

std::string numbers(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += (i == 0 ? "" : ",") + std::to_string(i % 100);
    }
    return text;
}

std::string editedOnce(std::string text, const std::string& from, const std::string& to) {
    const size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string sampleText() {
    return fileText(sampleFile());
}

std::vector<CorpusFile> harmlessSampleVariants() {
    const std::string sample = sampleText();
    return {
        {"CrLf", replaced(sample, "\n", "\r\n")},
        {"Cr", replaced(sample, "\n", "\r")},
        {"Tabs", replaced(sample, "    ", "\t")},
        {"ByteOrderMark", "\xef\xbb\xbf" + sample},
        {"Utf16", utf16(replaced(sample, "encoding=\"UTF-8\"", "encoding=\"UTF-16\""))},
        {"SingleQuotes", replaced(sample, "\"", "'")},
        {"EndTags", replaced(sample, "<auxiliary-system-gain value=\"0\"/>",
                             "<auxiliary-system-gain value=\"0\"></auxiliary-system-gain>")},
        {"Comments", replaced(sample, "            <ieq-enable",
                              "            <!-- switched -->\n            <ieq-enable")},
        {"TrailingComma", replaced(sample, "data=\"96,96,80,80\"", "data=\"96,96,80,80,\"")},
    };
}

std::vector<CorpusFile> tuningFileCorpus() {
    std::vector<CorpusFile> corpus = {{"Sample", sampleText()}};
    for (const MalformedInput& input : malformedInputs()) {
        corpus.push_back({input.name, input.text});
    }
    for (CorpusFile& variant : harmlessSampleVariants()) {
        corpus.push_back(std::move(variant));
    }
    if (DIR* fixtures = opendir(dataFile("").c_str())) {
        while (const dirent* entry = readdir(fixtures)) {
            const std::string name = entry->d_name;
            if (name.size() > 4 && name.substr(name.size() - 4) == ".xml") {
                corpus.push_back({name, fileText(dataFile(name))});
            }
        }
        closedir(fixtures);
    }
    const std::string sample = sampleText();
    const std::string profiles = "    <profile id=\"0\" name=\"dynamic\">";
    const std::string presets = "    <preset type=\"geq\" id=\"0\">";
    corpus.push_back(
        {"BillionLaughs", "<?xml version=\"1.0\"?>\n" + billionLaughs() +
                              "<tuning_file>\n    <general>\n        <settings>\n"
                              "            <auxiliary-system-gain-enable value=\"&lol9;\"/>\n"
                              "        </settings>\n    </general>\n</tuning_file>\n"});
    corpus.push_back({"ExternalEntity",
                      "<?xml version=\"1.0\"?>\n<!DOCTYPE tuning_file [\n"
                      "    <!ENTITY secret SYSTEM \"file:///etc/hostname\">\n]>\n"
                      "<tuning_file>\n    <general>\n        <settings>\n            &secret;\n"
                      "        </settings>\n    </general>\n</tuning_file>\n"});
    corpus.push_back({"ProfilePastItsRoom",
                      replaced(sample, "<drc-metadata data=\"0,1,2,0,0,0,0,0,0,0,0,0,0,0,0,0,0\"/>",
                               "<drc-metadata data=\"" + numbers(1200) + "\"/>")});
    corpus.push_back(
        {"TuningPastItsRoom", replaced(sample, "<bass-mbdrc-tuning data=\"",
                                       "<bass-mbdrc-tuning data=\"" + numbers(1100) + ",")});
    corpus.push_back(
        {"GeneralPastItsRoom",
         replaced(sample, presets,
                  "    <preset type=\"ieq\" id=\"ieq_warm\">\n        <ieq>\n"
                  "            <bands>\n                <band_ieq frequency=\"" +
                      numbers(600) + "\" target=\"" + numbers(600) +
                      "\"/>\n            </bands>\n        </ieq>\n    </preset>\n" + presets)});
    corpus.push_back(
        {"DuplicateProfile",
         replaced(sample, profiles,
                  sample.substr(sample.find(profiles),
                                sample.find("    <profile id=\"1\"") - sample.find(profiles)) +
                      profiles)});
    corpus.push_back({"OnOneLine", replaced(replaced(sample, "\n", ""), "    ", "")});
    return corpus;
}

}  // namespace ovela::testing
