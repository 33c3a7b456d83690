#ifndef OVELA_TUNE_ARRAY_DIFF_H
#define OVELA_TUNE_ARRAY_DIFF_H

#include <optional>
#include <string>
#include <vector>

#include "FileContents.h"

// What the effect receives differently from one tuning file than from
// another, compared by meaning: entries paired by where they came from in
// the file, lists value by value, band by band, whatever the order of the
// file or of the model's sets.
namespace ovela::tune {

struct Difference {
    std::string array;            // "general", "profile 2", "tuning speaker", "endpoint usb"
    std::string device;           // for an entry of a profile or the general array
    std::string code;             // for an entry
    std::string what;             // the entry's name and code, or what else changed
    std::optional<size_t> index;  // the value that changed, in a list that one element gives
    std::string band;             // the band that changed: "band 9 (1098 Hz)"
    std::string name;             // what the file calls the value that changed in the band
    std::string change;           // "changed", "added" or "removed"
    std::string before;           // "(missing)" for a value that only `after` has
    std::string after;

    // "profile 2 / headphone / volume-leveler-amount (qvla): 7 -> 6",
    // "general / all / iebs [IEQ preset warm]: band 9 (1098 Hz): target 94 -> (missing)"
    std::string text() const;
};

std::vector<Difference> compareFiles(const FileContents& before, const FileContents& after);

// One line per array that differs: how many of its entries changed, were
// added and were removed.
std::vector<std::string> differenceStats(const std::vector<Difference>& differences);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_ARRAY_DIFF_H
