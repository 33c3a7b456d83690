#ifndef OVELA_KYR_PARAMETER_ID_H
#define OVELA_KYR_PARAMETER_ID_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace ovela {

/**
 * An effect parameter code: four ASCII characters packed into one word, the
 * first character in the least significant byte ("hvrc"); a three-character
 * code leaves the top byte zero ("vol").
 */
using KyrParameterId = int32_t;

/**
 * The code of three or four characters, at compile time:
 * `kyrCode("vol")`, `kyrCode("hvrc")`.
 */
template <size_t N>
constexpr KyrParameterId kyrCode(const char (&text)[N]) {
    static_assert(N == 4 || N == 5, "an effect parameter code has three or four characters");
    uint32_t code = 0;
    for (size_t i = 0; i + 1 < N; ++i) {
        code |= static_cast<uint32_t>(static_cast<uint8_t>(text[i])) << (8 * i);
    }
    return static_cast<KyrParameterId>(code);
}

/** The characters of `code`, up to its first zero byte: "hvrc", "vol". */
inline std::string kyrCodeText(KyrParameterId code) {
    std::string text;
    for (size_t i = 0; i < sizeof(code); ++i) {
        char c = static_cast<char>((static_cast<uint32_t>(code) >> (8 * i)) & 0xff);
        if (c == '\0') {
            break;
        }
        text += c;
    }
    return text;
}

}  // namespace ovela

#endif  // OVELA_KYR_PARAMETER_ID_H
