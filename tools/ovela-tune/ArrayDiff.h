#ifndef OVELA_TUNE_ARRAY_DIFF_H
#define OVELA_TUNE_ARRAY_DIFF_H

#include <optional>
#include <string>
#include <vector>

#include "FileContents.h"

// What the effect receives differently from one tuning file than from
// another, compared by meaning: entries by their device and code, lists value
// by value, whatever the order of the file or of the model's sets.
namespace ovela::tune {

struct Difference {
    std::string array;            // "general", "profile 2", "tuning speaker", "endpoint usb"
    std::string device;           // for an entry of a profile or the general array
    std::string code;             // for an entry
    std::string what;             // the entry's name and code, or what else changed
    std::optional<size_t> index;  // the value that changed, in a list
    std::string change;           // "changed", "added" or "removed"
    std::string before;
    std::string after;

    // "profile 2 / headphone / volume-leveler-amount (qvla): 7 -> 6"
    std::string text() const;
};

std::vector<Difference> compareFiles(const FileContents& before, const FileContents& after);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_ARRAY_DIFF_H
