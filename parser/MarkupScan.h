#ifndef OVELA_MARKUP_SCAN_H
#define OVELA_MARKUP_SCAN_H

#include <cstddef>
#include <string>

// A look at a document's markup before libxml2 parses it; not part of the
// library's interface.
namespace ovela {

// The most attributes that one element of a tuning file may carry. The widest
// element of a real file has 6; libxml2 checks each attribute against every
// earlier one of its element, so 10^5 of them would hold a load for seconds.
inline constexpr size_t kMaxAttributesPerElement = 256;

struct MarkupScan {
    // How many '<' the text holds: no more elements than that can start in it.
    size_t openings = 0;
    // Line of the first element that may carry more than
    // kMaxAttributesPerElement attributes, 0 when none does.
    long crowdedLine = 0;
};

// Scans the document's text in the encoding that libxml2 will read it in
// (UTF-16 and the encodings that hide markup characters are decoded first).
// The count of attributes errs on the safe side: every '=' written after a
// name, also one written as a character reference (as an entity's text may),
// from one '<' to the next counts, since libxml2 builds all attributes of an
// element before any handler of the parser sees it. The scan stops at the
// first crowded element.
MarkupScan scanMarkup(const std::string& document);

}  // namespace ovela

#endif  // OVELA_MARKUP_SCAN_H
