#include "TextReaders.h"

#include <climits>

bool isStreamSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

namespace {

// Lists of up to this many values (an equalizer band list) build without reallocation.
constexpr size_t kUsualListSize = 20;

}  // namespace

int string2int(std::string text) {
    return parseDecimal(text);
}

int parseDecimal(std::string_view text) {
    size_t pos = 0;
    while (pos < text.size() && isStreamSpace(text[pos])) {
        ++pos;
    }
    bool negative = false;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
        negative = text[pos] == '-';
        ++pos;
    }
    // Accumulate the magnitude in a wider type and stop growing it once it
    // is past the range: the remaining digits can only saturate further.
    const long long limit = negative ? -static_cast<long long>(INT_MIN) : INT_MAX;
    long long magnitude = 0;
    bool anyDigit = false;
    for (; pos < text.size() && text[pos] >= '0' && text[pos] <= '9'; ++pos) {
        anyDigit = true;
        if (magnitude <= limit) {
            magnitude = magnitude * 10 + (text[pos] - '0');
        }
    }
    if (!anyDigit) {
        return 0;
    }
    if (magnitude > limit) {
        return negative ? INT_MIN : INT_MAX;
    }
    return static_cast<int>(negative ? -magnitude : magnitude);
}

std::vector<int> string_2_int_vector(std::string text) {
    std::vector<int> result;
    result.reserve(kUsualListSize);
    appendDecimals(text, result);
    return result;
}

size_t appendDecimals(std::string_view text, std::vector<int>& out) {
    const size_t before = out.size();
    size_t start = 0;
    for (size_t comma = text.find(','); comma != std::string_view::npos;
         comma = text.find(',', start)) {
        out.push_back(parseDecimal(text.substr(start, comma - start)));
        start = comma + 1;
    }
    out.push_back(parseDecimal(text.substr(start)));
    return out.size() - before;
}
