#include "MarkupScan.h"

#include <libxml/encoding.h>
#include <libxml/tree.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>

namespace ovela {

namespace {

constexpr size_t kPieceSize = 64 << 10;
// The XML declaration, where an encoding is declared, is short.
constexpr size_t kDeclarationLength = 256;

// The bytes that the scan below stops at.
constexpr char kMarks[] = "<&=";

// The line breaks in `text` as libxml2 counts them: CR LF, LF and a lone CR;
// `before` is the byte before the text.
long lineBreaksIn(std::string_view text, char before) {
    long breaks = 0;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data();
         (at = static_cast<const char*>(memchr(at, '\r', end - at))) != nullptr; ++at) {
        ++breaks;
    }
    for (const char* at = text.data();
         (at = static_cast<const char*>(memchr(at, '\n', end - at))) != nullptr; ++at) {
        breaks += (at == text.data() ? before : at[-1]) != '\r';
    }
    return breaks;
}

// Counts, from one literal '<' to the next, the '=' that follow a name, as the
// characters of UTF-8 (or of an encoding that writes markup characters as
// ASCII) come in, in any pieces. Most bytes matter to nothing here: the scan
// skips them with one table lookup each.
class Scanner {
  public:
    explicit Scanner(MarkupScan& scan) : mScan(scan) {}

    // False once an element is crowded. `text` is followed by a NUL, or by
    // more of the document.
    bool feed(std::string_view text) {
        const char* const begin = text.data();
        const char* const end = begin + text.size();
        for (const char* at = begin; at < end && mScan.crowdedLine == 0;) {
            if (mReference != Reference::NONE && continueReference(*at)) {
                ++at;
                continue;
            }
            // strcspn stops at a NUL too, which the document may hold.
            at = std::min(at + strcspn(at, kMarks), end);
            if (at == end) {
                break;
            }
            switch (*at) {
                case '<':
                    ++mScan.openings;
                    mEquals = 0;
                    mElement = at;
                    break;
                case '&':
                    mReference = Reference::AMPERSAND;
                    mBeforeReference = before(begin, at);
                    break;
                case '=':
                    equals(before(begin, at));
                    break;
            }
            ++at;
        }
        if (mScan.crowdedLine != 0) {
            mScan.crowdedLine =
                mElement == nullptr
                    ? mElementLine
                    : 1 + mBreaks +
                          lineBreaksIn(std::string_view(begin, mElement - begin), mLastByte);
            return false;
        }
        if (!text.empty()) {
            if (mElement != nullptr) {
                mElementLine = 1 + mBreaks +
                               lineBreaksIn(std::string_view(begin, mElement - begin), mLastByte);
                mElement = nullptr;
            }
            mBreaks += lineBreaksIn(text, mLastByte);
            mCarried = before(begin, end);
            mLastByte = end[-1];
        }
        return true;
    }

  private:
    // A character reference in the middle of being read.
    enum class Reference { NONE, AMPERSAND, HASH, DECIMAL, HEX };

    static bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

    static bool isNameCharacter(uint32_t c) {
        // A character reference's ';' may stand for a name character.
        return c >= 0x80 || std::isalnum(static_cast<int>(c)) || c == '-' || c == '_' || c == '.' ||
               c == ':' || c == ';';
    }

    static int digitOf(char c, int base) {
        if (c >= '0' && c <= '9') {
            return c - '0';
        }
        const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return base == 16 && lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
    }

    // The last character before `at` that is no blank, in this piece or the
    // ones before.
    uint32_t before(const char* begin, const char* at) const {
        while (at > begin && isSpace(at[-1])) {
            --at;
        }
        return at > begin ? static_cast<unsigned char>(at[-1]) : mCarried;
    }

    void equals(uint32_t before) {
        if (isNameCharacter(before) && ++mEquals > kMaxAttributesPerElement) {
            mScan.crowdedLine = 1;
        }
    }

    // Reads `c` as part of a character reference; false when it is not one,
    // and the reference is over.
    bool continueReference(char c) {
        switch (mReference) {
            case Reference::NONE:
                return false;
            case Reference::AMPERSAND:
                mReference = c == '#' ? Reference::HASH : Reference::NONE;
                return mReference != Reference::NONE;
            case Reference::HASH:
                mValue = 0;
                if (c == 'x') {
                    mReference = Reference::HEX;
                    return true;
                }
                mReference = Reference::DECIMAL;
                break;
            case Reference::DECIMAL:
            case Reference::HEX:
                break;
        }
        const int base = mReference == Reference::HEX ? 16 : 10;
        if (c == ';') {
            mReference = Reference::NONE;
            decoded(mValue);
            return true;
        }
        const int digit = digitOf(c, base);
        if (digit < 0) {
            mReference = Reference::NONE;
            return false;
        }
        mValue = std::min<uint32_t>(mValue * base + digit, 0x110000);
        return true;
    }

    // A character written as a reference, as an entity's text may hold one:
    // an '&' may start another reference, as it does when that text is read
    // again.
    void decoded(uint32_t c) {
        if (c == '&') {
            mReference = Reference::AMPERSAND;
        } else if (c == '=') {
            equals(mBeforeReference);
        }
    }

    MarkupScan& mScan;
    // The line breaks of the pieces before; where in this piece the last
    // element started, or null when it started in one before, on this line.
    long mBreaks = 0;
    const char* mElement = nullptr;
    long mElementLine = 1;
    size_t mEquals = 0;
    // The last character of the pieces before that is no blank, and their
    // last byte.
    uint32_t mCarried = 0;
    char mLastByte = 0;
    Reference mReference = Reference::NONE;
    uint32_t mBeforeReference = 0;
    uint32_t mValue = 0;
};

struct CloseHandler {
    void operator()(xmlCharEncodingHandler* handler) const { xmlCharEncCloseFunc(handler); }
};
using Decoder = std::unique_ptr<xmlCharEncodingHandler, CloseHandler>;

struct FreeBuffer {
    void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};
using Buffer = std::unique_ptr<xmlBuffer, FreeBuffer>;

bool startsWithNoCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), text.begin(), [](char a, char b) {
               return std::toupper(static_cast<unsigned char>(a)) == b;
           });
}

// Encodings in which every markup character is its ASCII byte and no other
// character uses that byte: the text scans as it stands. (A document that
// looks like ASCII and says UTF-16 is one that libxml2 refuses.)
bool writesMarkupAsAscii(std::string_view name) {
    static constexpr std::string_view kNames[] = {"UTF-8",    "UTF8",   "ASCII",
                                                  "US-ASCII", "UTF-16", "UTF16"};
    static constexpr std::string_view kFamilies[] = {"ISO-8859-", "ISO8859",     "ISO-LATIN-",
                                                     "LATIN",     "WINDOWS-125", "CP125"};
    return std::any_of(std::begin(kNames), std::end(kNames),
                       [&](std::string_view known) {
                           return name.size() == known.size() && startsWithNoCase(name, known);
                       }) ||
           std::any_of(std::begin(kFamilies), std::end(kFamilies),
                       [&](std::string_view family) { return startsWithNoCase(name, family); });
}

// The encoding that the XML declaration at the start of `document` names, and
// where the declaration's encoding value ends; empty when it names none.
std::string_view declaredEncoding(std::string_view document, size_t* end) {
    std::string_view head = document.substr(0, kDeclarationLength);
    if (head.rfind("\xEF\xBB\xBF", 0) == 0) {
        head.remove_prefix(3);
    }
    if (head.rfind("<?xml", 0) != 0) {
        return std::string_view();
    }
    head = head.substr(0, head.find("?>"));
    size_t at = head.find("encoding");
    if (at == std::string_view::npos) {
        return std::string_view();
    }
    at = head.find_first_of("\"'", at);
    if (at == std::string_view::npos) {
        return std::string_view();
    }
    const size_t close = head.find(head[at], at + 1);
    if (close == std::string_view::npos) {
        return std::string_view();
    }
    *end = static_cast<size_t>(head.data() - document.data()) + close + 1;
    return head.substr(at + 1, close - at - 1);
}

// The decoder that libxml2 will read `document` with, when its markup does not
// scan byte by byte, and the offset at which libxml2 starts decoding.
Decoder decoderFor(const std::string& document, size_t* start) {
    *start = 0;
    const auto* bytes = reinterpret_cast<const unsigned char*>(document.data());
    const xmlCharEncoding detected =
        xmlDetectCharEncoding(bytes, static_cast<int>(std::min<size_t>(document.size(), 4)));
    if (detected != XML_CHAR_ENCODING_NONE && detected != XML_CHAR_ENCODING_UTF8) {
        return Decoder(xmlGetCharEncodingHandler(detected));
    }
    // libxml2 reads the declaration as it stands and switches to the
    // encoding it names right after the name.
    const std::string name(declaredEncoding(document, start));
    if (name.empty() || writesMarkupAsAscii(name)) {
        *start = 0;
        return nullptr;
    }
    return Decoder(xmlFindCharEncodingHandler(name.c_str()));
}

// Feeds the document from `start` to `scanner` in UTF-8, piece by piece, as
// far as `decoder` can decode it.
void scanDecoded(const std::string& document, size_t start, xmlCharEncodingHandler* decoder,
                 Scanner& scanner) {
    Buffer in(xmlBufferCreate());
    Buffer out(xmlBufferCreate());
    if (in == nullptr || out == nullptr) {
        return;
    }
    for (size_t at = start; at < document.size() || xmlBufferLength(in.get()) > 0;) {
        const size_t length = std::min(kPieceSize, document.size() - at);
        xmlBufferAdd(in.get(), reinterpret_cast<const xmlChar*>(document.data() + at),
                     static_cast<int>(length));
        at += length;
        const int before = xmlBufferLength(in.get());
        const int written = xmlCharEncInFunc(decoder, out.get(), in.get());
        const auto* text = reinterpret_cast<const char*>(xmlBufferContent(out.get()));
        if (!scanner.feed(std::string_view(text, xmlBufferLength(out.get())))) {
            return;
        }
        xmlBufferEmpty(out.get());
        // A decoding error stops libxml2 at the same place; a partial
        // character waits for the next piece, unless none follows.
        if (written < 0 || (at == document.size() && xmlBufferLength(in.get()) == before)) {
            return;
        }
    }
}

}  // namespace

MarkupScan scanMarkup(const std::string& document) {
    MarkupScan scan;
    Scanner scanner(scan);
    size_t start = 0;
    const Decoder decoder = decoderFor(document, &start);
    if (decoder == nullptr) {
        scanner.feed(document);
        return scan;
    }
    if (scanner.feed(std::string_view(document).substr(0, start))) {
        scanDecoded(document, start, decoder.get(), scanner);
    }
    return scan;
}

}  // namespace ovela
