#ifndef OVELA_TUNE_LINT_TEXT_H
#define OVELA_TUNE_LINT_TEXT_H

#include <libxml/tree.h>

#include <string>
#include <string_view>
#include <vector>

// Small readers of libxml2 nodes and texts shared by the lint's section checks.
namespace ovela::tune::lint {

std::string nameOf(const xmlNode* node);
// "<name>", as the findings quote an element.
std::string tag(const xmlNode* node);
std::string nameOf(const xmlAttr* attribute);
// The attribute's text as the file writes it, entity references left as
// "&name;": the lint never expands them, so a file built to expand past all
// memory is read at its own size.
std::string valueOf(const xmlAttr* attribute);
// The value of the attribute `name`; empty when the element has none.
std::string attribute(const xmlNode* element, std::string_view name);
bool hasAttribute(const xmlNode* element, std::string_view name);

// The child node that the reader starts a list at: the second one. Null when missing.
xmlNode* secondChild(const xmlNode* node);

// True for text that reads whole as one int: blanks, a sign, digits, blanks.
bool isWholeNumber(const std::string& text);
// The comma-separated fields of a row, as strtok gives them (no empty fields).
std::vector<std::string> rowFields(const std::string& text);

// " (did you mean NAME?)" when a known name differs from `name` only in
// letter case or in '-' against '_'; empty otherwise.
std::string similarName(const std::string& name, const std::vector<std::string_view>& known);

template <typename Table>
std::vector<std::string_view> namesOf(const Table& table) {
    std::vector<std::string_view> names;
    for (const auto& entry : table) {
        names.push_back(entry.first);
    }
    return names;
}

}  // namespace ovela::tune::lint

#endif  // OVELA_TUNE_LINT_TEXT_H
