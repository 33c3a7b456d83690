#ifndef OVELA_TUNE_TAG_SCAN_H
#define OVELA_TUNE_TAG_SCAN_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// A tolerant scan of the tags of a text that an editor holds, perhaps half
// typed: where each tag and attribute stands and which elements are open at
// a place. It says where the cursor is, never what a load reads: that is the
// library's.
namespace ovela::tune {

struct ScannedAttribute {
    std::string name;
    std::string value;
    size_t nameBegin;
    size_t valueBegin;  // past the opening quote; npos when no value has started
    size_t valueEnd;    // at the closing quote; npos while the value is open
};

struct ScannedTag {
    std::string name;
    size_t begin;  // at '<'
    size_t end;    // past '>'; npos for a tag that the text does not end
    bool closing;  // "</name>"
    bool selfClosing;
    std::vector<ScannedAttribute> attributes;

    // The value of `attribute`, empty when the tag lacks it.
    std::string valueOf(std::string_view attribute) const;
};

// Where a place of the text stands.
struct CursorContext {
    enum class Where {
        CONTENT,          // between tags
        ELEMENT_NAME,     // in the name of a start or end tag
        ATTRIBUTE_NAME,   // in a start tag, where an attribute's name goes
        ATTRIBUTE_VALUE,  // inside an attribute's quotes
        OTHER,            // in a comment, CDATA, a declaration
    };
    Where where = Where::OTHER;
    // The start tags of the elements open there, outermost first (the root
    // included).
    std::vector<const ScannedTag*> open;
    // The tag the place is in, for every place but CONTENT and OTHER.
    const ScannedTag* tag = nullptr;
    const ScannedAttribute* attribute = nullptr;  // ATTRIBUTE_VALUE only
    size_t wordBegin = 0;                         // where the name or value being written starts
};

class TagScan {
  public:
    explicit TagScan(std::string_view text);

    // Every tag, in the order of the text.
    const std::vector<ScannedTag>& tags() const { return mTags; }
    CursorContext contextAt(size_t offset) const;
    // Whether `offset` lies in a comment, CDATA, a processing instruction or
    // a declaration.
    bool inMarkup(size_t offset) const;
    // Whether a comment, CDATA, a processing instruction or a declaration
    // starts at `offset`.
    bool markupStartsAt(size_t offset) const;
    // The number of elements open at each of `offsets`, in increasing order,
    // as contextAt() counts them; in one pass, for a whole text.
    std::vector<size_t> openCounts(const std::vector<size_t>& offsets) const;
    // The tag that starts at `offset`, or null.
    const ScannedTag* tagStartingAt(size_t offset) const;
    // The end tag that closes the start tag `start`, or null.
    const ScannedTag* endTagOf(const ScannedTag& start) const;

  private:
    void scanTag(size_t at);
    // Skips markup that opens at `at` with `open` and ends with `close`.
    size_t skipMarkup(size_t at, std::string_view open, std::string_view close);

    std::string_view mText;
    std::vector<ScannedTag> mTags;
    // [begin, end) of comments, CDATA, processing instructions, declarations.
    std::vector<std::pair<size_t, size_t>> mMarkup;
};

}  // namespace ovela::tune

#endif  // OVELA_TUNE_TAG_SCAN_H
