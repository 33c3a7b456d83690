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
    if (text.size() > kLongestQuote) {
        std::string start = quoted(text.substr(0, kLongestQuote));
        start.insert(start.size() - 1, "...");
        return start;
    }
    std::string out = "\"";
    for (size_t i = 0; i < text.size();) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0x20 && byte < 0x7f) {
            if (byte == '"' || byte == '\\') out += '\\';
            out += static_cast<char>(byte);
            ++i;
            continue;
        }
        // A UTF-8 sequence shows as its code point, a stray byte as itself.
        const size_t length = byte >= 0xf0 ? 4 : byte >= 0xe0 ? 3 : byte >= 0xc0 ? 2 : 1;
        uint32_t code = length == 1 ? byte : byte & (0x3f >> (length - 1));
        bool valid = length > 1 && i + length <= text.size();
        for (size_t k = 1; valid && k < length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            valid = (next & 0xc0) == 0x80;
            code = (code << 6) | (next & 0x3f);
        }
        char escape[16];
        if (length == 1 || !valid) {
            snprintf(escape, sizeof(escape), byte < 0x80 ? "\\u%04x" : "\\x%02x", byte);
            ++i;
        } else {
            snprintf(escape, sizeof(escape), code > 0xffff ? "\\U%08x" : "\\u%04x", code);
            i += length;
        }
        out += escape;
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
