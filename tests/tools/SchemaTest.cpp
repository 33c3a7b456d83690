#include <gtest/gtest.h>
#include <libxml/xmlschemas.h>

#include "TempFile.h"
#include "ToolRun.h"
#include "TuningFileCorpus.h"

namespace ovela::tune {
namespace {

using ovela::testing::editedOnce;
using ovela::testing::fileText;
using ovela::testing::sampleText;
using ovela::testing::TempFile;

const std::string kCommittedSchema = std::string(OVELA_SOURCE_DIR) + "/schema/ovela-tuning.xsd";

// The shipped schema is the one that the vocabulary writes today: a name
// added to the reader and not to the schema fails here.
TEST(OvelaTuneSchemaTest, CommittedSchemaIsTheGeneratedOne) {
    ToolRun run = runOvelaTune({"schema"});
    ASSERT_EQ(run.exitCode, kExitOk);
    EXPECT_EQ(run.out, fileText(kCommittedSchema))
        << "run: ovela-tune schema > schema/ovela-tuning.xsd";
}

// Validates as xmllint --schema does, with libxml2's own validator.
class SchemaValidator {
  public:
    SchemaValidator() {
        xmlSchemaParserCtxtPtr parser = xmlSchemaNewParserCtxt(kCommittedSchema.c_str());
        mSchema = xmlSchemaParse(parser);
        xmlSchemaFreeParserCtxt(parser);
    }
    ~SchemaValidator() { xmlSchemaFree(mSchema); }

    bool loaded() const { return mSchema != nullptr; }

    bool validates(const std::string& text) {
        TempFile file(text);
        xmlSchemaValidCtxtPtr context = xmlSchemaNewValidCtxt(mSchema);
        xmlSchemaSetValidStructuredErrors(
            context, [](void*, xmlErrorPtr) {}, nullptr);
        const int result = xmlSchemaValidateFile(context, file.path().c_str(), 0);
        xmlSchemaFreeValidCtxt(context);
        return result == 0;
    }

  private:
    xmlSchemaPtr mSchema = nullptr;
};

TEST(OvelaTuneSchemaTest, TheSampleValidatesAndMistakesDoNot) {
    SchemaValidator schema;
    ASSERT_TRUE(schema.loaded());
    const std::string sample = sampleText();
    EXPECT_TRUE(schema.validates(sample));
    for (const testing::CorpusFile& variant : testing::harmlessSampleVariants()) {
        // The one variant that check warns about is the one the schema rejects.
        EXPECT_EQ(schema.validates(variant.text), variant.name != "TrailingComma") << variant.name;
    }

    const std::pair<const char*, const char*> kMistakes[] = {
        {"<volume-leveler-amount value=", "<volume-leveler-amout value="},
        {"<endpoint_type id=\"headphone\"", "<endpoint_type id=\"Headphone\""},
        {"<profile id=\"9\"", "<profile id=\"12\""},
        {"<profile id=\"9\"", "<profile id=\"0\""},
        {"<ieq-amount value=\"", "<ieq-amount value=\"ten"},
        {"mono_device=\"false\"", "mono_device=\"False\""},
        {"<include preset=\"ieq_warm\"/>", "<include preset=\"ieq_hot\"/>"},
        {"<preset type=\"ieq\"", "<preset type=\"IEQ\""},
        {"<data>", "<data>\n<bass-enhancer-boost value=\"99999999999\"/>"},
        {"</data>", "</data>\n<device_id id=\"usb\"/>"},
    };
    for (const auto& [from, to] : kMistakes) {
        EXPECT_FALSE(schema.validates(editedOnce(sample, from, to))) << to;
    }
}

}  // namespace
}  // namespace ovela::tune
