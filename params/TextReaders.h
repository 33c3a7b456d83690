#ifndef OVELA_TEXT_READERS_H
#define OVELA_TEXT_READERS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Text-to-number readers of the tuning file. They never fail: unreadable text
// reads as 0, so a caller cannot tell "0" from a bad value.

// Reads one decimal int as a classic-locale stream extraction would: leading
// white space, an optional sign, digits up to the first non-digit; values past
// the int range saturate.
int string2int(std::string text);

// White space as a classic-locale stream skips it.
bool isStreamSpace(char c);

// string2int on a view of the text, which it does not copy.
int parseDecimal(std::string_view text);

// Splits at every "," keeping empty pieces (n commas give n + 1 values) and
// reads each piece with string2int. Never returns an empty list.
std::vector<int> string_2_int_vector(std::string text);

// The same, appending the values to `out`; returns how many it appended.
size_t appendDecimals(std::string_view text, std::vector<int>& out);

#endif  // OVELA_TEXT_READERS_H
