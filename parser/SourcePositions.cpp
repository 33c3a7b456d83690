#include "SourcePositions.h"

#include <cstring>

namespace ovela {

namespace {

// A line break as libxml2 counts one: LF, CR LF (once), or a lone CR.
bool breaksLine(const xmlChar* at) {
    return *at == '\n' || (*at == '\r' && at[1] != '\n');
}

// The characters of UTF-8 text in [begin, end): the bytes that start one.
long charactersIn(const xmlChar* begin, const xmlChar* end) {
    long count = 0;
    for (const xmlChar* at = begin; at < end; ++at) {
        count += (*at & 0xC0) != 0x80;
    }
    return count;
}

bool isBlank(xmlChar c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Walks text forward from a known line and column.
class Cursor {
  public:
    Cursor(const xmlChar* at, long line, long column) : mAt(at), mLine(line), mColumn(column) {}

    void moveTo(const xmlChar* to) {
        for (; mAt < to; ++mAt) {
            if (breaksLine(mAt)) {
                ++mLine;
                mColumn = 1;
            } else if ((*mAt & 0xC0) != 0x80 && *mAt != '\n' && mColumn != 0) {
                ++mColumn;
            }
        }
    }
    long line() const { return mLine; }
    long column() const { return mColumn; }

  private:
    const xmlChar* mAt;
    long mLine;
    long mColumn;
};

}  // namespace

std::string_view startTagText(const xmlParserInput* input) {
    const xmlChar* start = input->cur;
    while (start > input->base && *start != '<') {
        --start;
    }
    if (*start != '<') {
        return std::string_view();
    }
    return std::string_view(reinterpret_cast<const char*>(start), input->cur - start);
}

Place SourcePositions::placeBefore(const xmlChar* start, const xmlParserInput* input) {
    const xmlChar* const end = input->cur;
    long breaks = 0;
    for (const xmlChar* at = start; at < end; ++at) {
        breaks += breaksLine(at);
    }
    Place place;
    place.line = input->line - breaks;
    if (breaks == 0) {
        place.column = input->col - charactersIn(start, end);
    } else {
        // The line starts after the break before it, if the parser still
        // holds it.
        const xmlChar* lineStart = start;
        while (lineStart > input->base && lineStart[-1] != '\n' && lineStart[-1] != '\r') {
            --lineStart;
        }
        const bool known = lineStart > input->base || input->consumed == 0;
        place.column = known ? charactersIn(lineStart, start) + 1 : 0;
    }
    place.endLine = input->line;
    place.endColumn = input->col;
    return place;
}

void SourcePositions::recordNode(const xmlNode* node, const xmlParserInput* input,
                                 std::string_view opening) {
    // The parser stands just past the node's text, whose opening is the last
    // one before it: a comment holds no "--", a reference no '&'.
    const auto* base = reinterpret_cast<const char*>(input->base);
    const std::string_view before(base, reinterpret_cast<const char*>(input->cur) - base);
    const size_t start = before.rfind(opening);
    if (node != nullptr && start != std::string_view::npos) {
        mTags[node].place = placeBefore(input->base + start, input);
    }
}

void SourcePositions::recordStartTag(const xmlNode* element, const xmlParserInput* input) {
    // The parser stands at the '>' or "/>" that ends the start tag, which
    // holds no '<' but its first character.
    const std::string_view text = startTagText(input);
    if (text.empty()) {
        return;
    }
    const auto* start = reinterpret_cast<const xmlChar*>(text.data());
    const xmlChar* const end = input->cur;
    Tag tag;
    tag.place = placeBefore(start, input);
    tag.place.endColumn = input->col + (*end == '/' ? 2 : 1);

    // The attributes, name="value" after the element's name.
    Cursor cursor(start, tag.place.line, tag.place.column);
    const xmlChar* at = start + 1;
    while (at < end && !isBlank(*at)) {
        ++at;
    }
    while (at < end) {
        while (at < end && isBlank(*at)) {
            ++at;
        }
        const xmlChar* name = at;
        while (at < end && *at != '=' && !isBlank(*at)) {
            ++at;
        }
        const xmlChar* nameEnd = at;
        while (at < end && *at != '\'' && *at != '"') {
            ++at;
        }
        if (at == end || name == nameEnd) {
            break;
        }
        const xmlChar* close =
            static_cast<const xmlChar*>(memchr(at + 1, *at, static_cast<size_t>(end - at - 1)));
        if (close == nullptr) {
            break;
        }
        Attribute attribute;
        attribute.name.assign(reinterpret_cast<const char*>(name), nameEnd - name);
        cursor.moveTo(name);
        attribute.place.line = cursor.line();
        attribute.place.column = cursor.column();
        cursor.moveTo(close + 1);
        attribute.place.endLine = cursor.line();
        attribute.place.endColumn = cursor.column();
        tag.attributes.push_back(std::move(attribute));
        at = close + 1;
    }
    mTags[element] = std::move(tag);
}

Place SourcePositions::of(const xmlNode* node) const {
    if (node == nullptr) {
        return Place();
    }
    const auto found = mTags.find(node);
    if (found != mTags.end()) {
        return found->second.place;
    }
    const long line = xmlGetLineNo(node);
    return {line, 0, line, 0};
}

Place SourcePositions::of(const xmlNode* element, std::string_view attribute) const {
    const auto found = mTags.find(element);
    if (found != mTags.end()) {
        for (const Attribute& candidate : found->second.attributes) {
            // A prefixed name stands for its local name, as libxml2 keeps it.
            const std::string_view name = candidate.name;
            if (name == attribute ||
                (name.size() > attribute.size() && name.back() == attribute.back() &&
                 name.substr(name.size() - attribute.size()) == attribute &&
                 name[name.size() - attribute.size() - 1] == ':')) {
                return candidate.place;
            }
        }
    }
    return of(element);
}

}  // namespace ovela
