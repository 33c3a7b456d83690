#ifndef OVELA_TESTS_TUNING_FILE_CORPUS_H
#define OVELA_TESTS_TUNING_FILE_CORPUS_H

#include <ostream>
#include <string>
#include <vector>

// Tuning files that several suites share: the malformed inputs, the hostile
// ones, variants of the sample, and everything together.
namespace ovela::testing {

struct CorpusFile {
    std::string name;
    std::string text;
};

// Inputs that are no tuning file as the reader knows it, with what
// setTuningFile returns for each.
struct MalformedInput {
    const char* name;
    std::string text;
    int result;
};
std::vector<MalformedInput> malformedInputs();

inline void PrintTo(const MalformedInput& input, std::ostream* out) {
    *out << input.name;
}

// Nine levels of entities, each ten references to the one below: a billion
// copies of "lol" if anything expanded them.
std::string billionLaughs();

std::string sampleText();

// A row of `count` numbers: "0,1,2,...", from 0 again after 99.
std::string numbers(int count);

// `text` with every `from` written as `to`.
std::string replaced(std::string text, const std::string& from, const std::string& to);

// The text in UTF-16, little-endian, behind its byte order mark.
std::string utf16(const std::string& ascii);

// " a0="1" a1="1" ...": `count` attributes, their values in `quote`.
std::string attributes(int count, char quote = '"');

// `text` with the first `from` written as `to`; a test fails when there is no
// `from` to edit.
std::string editedOnce(std::string text, const std::string& from, const std::string& to);

// The sample written otherwise without changing anything that a reader of
// the file means: other line ends, tabs, a byte order mark, UTF-16, single
// quotes, end tags for empty elements, comments, a trailing comma.
std::vector<CorpusFile> harmlessSampleVariants();

// Every tuning file that the tests keep as text: the fixtures under
// tests/data, the malformed and hostile inputs, the sample and its variants.
std::vector<CorpusFile> tuningFileCorpus();

}  // namespace ovela::testing

#endif  // OVELA_TESTS_TUNING_FILE_CORPUS_H
