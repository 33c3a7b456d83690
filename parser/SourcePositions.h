#ifndef OVELA_SOURCE_POSITIONS_H
#define OVELA_SOURCE_POSITIONS_H

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// Where elements and attributes stand in a tuning file's text; not part of the
// library's interface.
namespace ovela {

// The text of the start tag that the parser of `input` has just read, from
// its '<' to the '>' or "/>" that ends it; empty when the parser no longer
// holds its start.
std::string_view startTagText(const xmlParserInput* input);

// A stretch of the file's text: from a line and column to an end line and
// column, all 1-based, the end just past the last character. A column of 0
// means that the parser could not tell it.
struct Place {
    long line = 0;
    long column = 0;
    long endLine = 0;
    long endColumn = 0;
};

// The places of the start tags of a document's elements and of their
// attributes, taken while libxml2 parses it (its tree keeps lines, not
// columns). Each place is taken from the parser at the end of the start tag,
// and its start found by going back through the tag's text.
class SourcePositions {
  public:
    // Takes the places of `element`, whose start tag the parser of `input`
    // has just read.
    void recordStartTag(const xmlNode* element, const xmlParserInput* input);
    // Takes the place of `node`, a comment, a processing instruction or an
    // entity reference that the parser of `input` has just read, whose text
    // starts with `opening` ("<!--").
    void recordNode(const xmlNode* node, const xmlParserInput* input, std::string_view opening);
    // Forgets every element recorded, whose nodes are freed.
    void clear() { mTags.clear(); }

    // The start tag of `node`; for a node that was not recorded, its line as
    // libxml2 keeps it and no column.
    Place of(const xmlNode* node) const;
    // The attribute `attribute` of `element`, from its name to the end of its
    // value; the start tag when it has no such attribute.
    Place of(const xmlNode* element, std::string_view attribute) const;

  private:
    // From `start`, before where the parser of `input` stands, to there.
    static Place placeBefore(const xmlChar* start, const xmlParserInput* input);

    struct Attribute {
        std::string name;
        Place place;
    };
    struct Tag {
        Place place;
        std::vector<Attribute> attributes;
    };

    std::unordered_map<const xmlNode*, Tag> mTags;
};

}  // namespace ovela

#endif  // OVELA_SOURCE_POSITIONS_H
