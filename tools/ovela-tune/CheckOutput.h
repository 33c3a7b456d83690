#ifndef OVELA_TUNE_CHECK_OUTPUT_H
#define OVELA_TUNE_CHECK_OUTPUT_H

#include <memory>
#include <ostream>
#include <vector>

#include "FindingFilter.h"
#include "LoadedFile.h"

// How check prints what it found, in each of its formats.
namespace ovela::tune {

struct CheckedFile {
    std::unique_ptr<LoadedFile> file;
    ShownFindings findings;
};

// FILE:LINE:COLUMN: LEVEL: message [rule], one line per finding shown, as
// compilers print theirs; a finding about the whole file has no line.
// `style` adds colour, and the source line with a caret under the column
// and tildes under the rest of what the finding is about.
struct LineStyle {
    bool colour = false;
    bool source = false;
};
void printFindingLines(const CheckedFile& checked, const LineStyle& style, std::ostream& out);

// One line that counts what was shown at `threshold` and above, and what was
// not: "FILE: loads, 0 errors, 0 warnings, 26 notes not shown: --severity=note".
std::string summaryLine(const std::vector<CheckedFile>& files, Severity threshold);

// {"version": 1, "files": [...], "findings": [...]}.
void printCheckJson(const std::vector<CheckedFile>& files, std::ostream& out);

// A SARIF 2.1.0 log of one run: the tool, every rule, one result per finding
// shown, and one per finding suppressed, marked so.
void printSarif(const std::vector<CheckedFile>& files, std::ostream& out);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_CHECK_OUTPUT_H
