#include "FindingText.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>

#include "XmlNodes.h"

namespace ovela {

namespace {

// The longest name that may get a suggestion, and the most of a text that a
// finding quotes: a hostile file's 10 MB name or row costs no more than this.
constexpr size_t kLongestSuggestedName = 128;
constexpr size_t kLongestQuote = 120;

// The code point of one well-formed UTF-8 character.
uint32_t codePoint(std::string_view character) {
    const auto byte = static_cast<unsigned char>(character[0]);
    uint32_t code = character.size() == 1 ? byte : byte & (0x3f >> (character.size() - 1));
    for (size_t k = 1; k < character.size(); ++k) {
        code = (code << 6) | (static_cast<unsigned char>(character[k]) & 0x3f);
    }
    return code;
}

// The bytes of the well-formed UTF-8 character that `text` starts with; 0
// for a byte that starts none, an overlong form or a surrogate.
size_t utf8Length(std::string_view text) {
    const auto byte = static_cast<unsigned char>(text[0]);
    const size_t length = byte >= 0xf8   ? 0
                          : byte >= 0xf0 ? 4
                          : byte >= 0xe0 ? 3
                          : byte >= 0xc2 ? 2
                                         : 0;
    if (length == 0 || length > text.size()) {
        return 0;
    }
    for (size_t k = 1; k < length; ++k) {
        if ((static_cast<unsigned char>(text[k]) & 0xc0) != 0x80) {
            return 0;
        }
    }
    const uint32_t code = codePoint(text.substr(0, length));
    const uint32_t least = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
    const bool surrogate = code >= 0xd800 && code <= 0xdfff;
    return code < least || surrogate || code > 0x10ffff ? 0 : length;
}

// Whether a code point shows as itself where a finding prints: not a control
// character, and nothing that is invisible or turns the text around it
// (zero-width characters, line and paragraph separators, direction marks).
bool showsAsItself(uint32_t code) {
    const bool control = code < 0x20 || (code >= 0x7f && code < 0xa0);
    const bool invisible = (code >= 0x200b && code <= 0x200f) ||
                           (code >= 0x2028 && code <= 0x202e) ||
                           (code >= 0x2060 && code <= 0x2069) || code == 0xfeff || code == 0xad;
    return !control && !invisible;
}

// Names compare as a person reads them: letter case and '-' against '_'
// make no difference.
std::string folded(std::string_view name) {
    std::string text;
    for (char c : name) {
        text += c == '_' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

// Edits (insertions, deletions, substitutions, swaps of neighbours) between two
// names, keeping three rows of the table.
size_t editDistance(const std::string& a, const std::string& b) {
    std::vector<size_t> before(b.size() + 1), previous(b.size() + 1), row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j) previous[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t cost = a[i - 1] == b[j - 1] ? 0 : 1;
            row[j] = std::min({previous[j] + 1, row[j - 1] + 1, previous[j - 1] + cost});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                row[j] = std::min(row[j], before[j - 2] + 1);
            }
        }
        std::swap(before, previous);
        std::swap(previous, row);
    }
    return previous[b.size()];
}

}  // namespace

std::string didYouMean(std::string_view name, const KnownNames& known) {
    // No name of the file is this long: a longer one is no typo of one.
    if (name.size() > kLongestSuggestedName) {
        return std::string();
    }
    const std::string wanted = folded(name);
    std::string_view best;
    size_t bestDistance = std::max<size_t>(1, std::min<size_t>(2, wanted.size() / 3)) + 1;
    for (std::string_view candidate : known) {
        // Names whose lengths differ by more edits than allowed cannot match.
        const size_t lengthDifference = candidate.size() > wanted.size()
                                            ? candidate.size() - wanted.size()
                                            : wanted.size() - candidate.size();
        if (candidate == name || lengthDifference >= bestDistance) {
            continue;
        }
        const size_t distance = editDistance(wanted, folded(candidate));
        if (distance < bestDistance) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return best.empty() ? std::string() : " (did you mean " + std::string(best) + "?)";
}

std::string quoted(std::string_view text) {
    std::string out = "\"";
    size_t i = 0;
    while (i < text.size() && i < kLongestQuote) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0x20 && byte < 0x7f) {
            if (byte == '"' || byte == '\\') out += '\\';
            out += static_cast<char>(byte);
            ++i;
            continue;
        }
        char escape[16];
        const size_t length = utf8Length(text.substr(i));
        if (length == 0) {
            // A control character or a byte that starts no character.
            snprintf(escape, sizeof(escape), byte < 0x80 ? "\\u%04x" : "\\x%02x", byte);
            out += escape;
            ++i;
            continue;
        }
        const uint32_t code = codePoint(text.substr(i, length));
        if (showsAsItself(code)) {
            out.append(text.substr(i, length));
        } else {
            snprintf(escape, sizeof(escape), code > 0xffff ? "\\U%08x" : "\\u%04x", code);
            out += escape;
        }
        i += length;
    }
    if (i < text.size()) {
        out += "...";
    }
    return out + "\"";
}

std::string tagOf(const xmlNode* node) {
    return "<" + std::string(xml::nameOf(node)) + ">";
}

std::string kindOf(const xmlNode* node) {
    switch (node->type) {
        case XML_COMMENT_NODE:
            return "a comment";
        case XML_TEXT_NODE:
            return "text";
        case XML_CDATA_SECTION_NODE:
            return "a CDATA section";
        case XML_PI_NODE:
            return "a processing instruction";
        case XML_ENTITY_REF_NODE:
            return "an entity reference";
        default:
            return "not an element";
    }
}

const char* ordinal(int position) {
    return position == 2 ? "2nd" : position == 4 ? "4th" : "next";
}

std::string lostText(const xmlNode* first, size_t elements, bool inside) {
    if (elements <= 1) {
        return tagOf(first) + " is";
    }
    return inside
               ? tagOf(first) + " and the " + std::to_string(elements - 1) + " elements in it are"
               : tagOf(first) + " and " + std::to_string(elements - 1) + " more elements are";
}

}  // namespace ovela
