#ifndef OVELA_FINDING_TEXT_H
#define OVELA_FINDING_TEXT_H

#include <libxml/tree.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// How findings write what they name; not part of the library's interface.
namespace ovela {

using KnownNames = std::vector<std::string_view>;

namespace known {

inline void add(KnownNames&) {}

template <size_t N>
void addOne(KnownNames& names, const char (&name)[N]) {
    names.push_back(name);
}

template <size_t N>
void addOne(KnownNames& names, const char* const (&table)[N]) {
    names.insert(names.end(), table, table + N);
}

template <typename Table>
void addOne(KnownNames& names, const Table& table) {
    for (const auto& entry : table) {
        names.push_back(entry.first);
    }
}

template <typename First, typename... Rest>
void add(KnownNames& names, const First& first, const Rest&... rest) {
    addOne(names, first);
    add(names, rest...);
}

}  // namespace known

// The names of name tables and single names, together.
template <typename... Names>
KnownNames knownNames(const Names&... names) {
    KnownNames all;
    known::add(all, names...);
    return all;
}

// " (did you mean NAME?)" when one of `known` is `name` with a small typo, in
// another letter case or with '-' for '_'; empty otherwise.
std::string didYouMean(std::string_view name, const KnownNames& known);

// `text` in double quotes, with quotes, backslashes and every character that
// does not show as itself escaped: "192\u00a0". A long text shows its start
// and "..." before the closing quote.
std::string quoted(std::string_view text);

// "<name>", as findings write an element.
std::string tagOf(const xmlNode* node);

// What a node that is not an element is, as a person calls it: "a comment".
std::string kindOf(const xmlNode* node);

// "2nd", "4th".
const char* ordinal(int position);

// What the reader does not read, from the element `first`, `elements` of them
// with those inside: "<x> is", "<x> and the 4 elements in it are" (when all
// are inside `first`), "<x> and 2 more elements are".
std::string lostText(const xmlNode* first, size_t elements, bool inside);

// The words of a name table, "a, b, c".
template <typename Table>
std::string wordsOf(const Table& table) {
    std::string words;
    for (const auto& entry : table) {
        words += (words.empty() ? "" : ", ") + std::string(entry.first);
    }
    return words;
}

}  // namespace ovela

#endif  // OVELA_FINDING_TEXT_H
