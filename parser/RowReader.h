#ifndef OVELA_ROW_READER_H
#define OVELA_ROW_READER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Reading of comma-separated rows; not part of the library's interface.
namespace ovela {

// What reading a row found besides its numbers, for a load that reports. Of
// each kind of field only the first few are kept, and the rest counted, so a
// row of millions of bad fields costs no more than a row of a few.
struct RowProblems {
    static constexpr size_t kKept = 8;

    // Fields that a run of commas, or a comma at the start, leaves empty. A
    // comma at the end leaves nothing behind.
    int emptyFields = 0;
    // Fields that are not a whole number, with the value each reads as.
    struct NotANumber {
        std::string field;
        int readAs;
        bool repeats;  // it holds no number at all and repeats the value before it
    };
    std::vector<NotANumber> notNumbers;
    size_t notNumberCount = 0;
    // Numbers past the int range, with the value each wraps to.
    std::vector<std::pair<std::string, int>> outOfRange;
    size_t outOfRangeCount = 0;
};

// Appends the numbers of `text` to `row`. Runs of commas separate like one, so
// empty fields do not exist; a field that holds no number repeats the value
// before it (0 at the start), and a field reads as sscanf's "%d" reads it.
// `problems`, when given, collects what a person would not expect. A NUL
// follows the text, as it does in the tree.
void readRow(std::string_view text, std::vector<int>& row, RowProblems* problems);

}  // namespace ovela

#endif  // OVELA_ROW_READER_H
