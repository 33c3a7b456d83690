#ifndef OVELA_TESTS_PARSER_TEST_SUPPORT_H
#define OVELA_TESTS_PARSER_TEST_SUPPORT_H

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <set>
#include <string>
#include <vector>

#include "TempFile.h"
#include "TuningFileParser.h"
#include "XmlNodes.h"

namespace ovela::testing {

// A tuning file around `sections`. A blank after every start tag keeps the
// whitespace node that the reader skips, so short files fit on one line.
inline std::string tuningFile(const std::string& sections) {
    return "<?xml version=\"1.0\"?>\n<tuning_file> " + sections + " </tuning_file>\n";
}

// Writes `xml` to a temporary file and loads it; returns setTuningFile's code.
inline int loadText(TuningFileParser& parser, const std::string& xml) {
    TempFile file(xml);
    return parser.setTuningFile(file.path());
}

// The texts of a set's entities, in the set's order: the file's.
template <typename Entity>
std::vector<std::string> textsOf(const std::set<Entity*>& entities) {
    std::vector<std::string> texts;
    for (Entity* entity : entities) {
        texts.push_back(entity->toString());
    }
    return texts;
}

// A document parsed in memory, for calling the node readers directly.
class XmlText {
  public:
    explicit XmlText(const std::string& xml)
        : mDocument(xmlReadMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr, 0)) {}

    xmlNode* root() const { return xmlDocGetRootElement(mDocument.get()); }

  private:
    xml::Document mDocument;
};

}  // namespace ovela::testing

#endif  // OVELA_TESTS_PARSER_TEST_SUPPORT_H
