#ifndef OVELA_TUNE_FINDING_FILTER_H
#define OVELA_TUNE_FINDING_FILTER_H

#include <string>
#include <vector>

#include "LoadedFile.h"

namespace ovela::tune {

// What a team chose to see of a load's findings, on the command line or in
// the editor's settings; the file's own suppression comments add to it.
struct FindingFilter {
    Severity threshold = Severity::WARNING;  // shows this level and above
    std::vector<std::string> disabled;       // rules silenced for every file
};

// What a view shows of one file's findings, and what it leaves out.
struct ShownFindings {
    std::vector<LoadFinding> shown;       // errors first, then in the order of the file
    std::vector<LoadFinding> suppressed;  // by a comment of the file or the filter
    size_t hidden[3] = {};                // below the threshold, by Severity
    size_t shownCount(Severity severity) const;
    // The findings of `severity` that nothing accepted, shown or not.
    size_t keptCount(Severity severity) const {
        return shownCount(severity) + hidden[static_cast<size_t>(severity)];
    }
};

ShownFindings showFindings(const LoadedFile& file, const FindingFilter& filter);

// "error", "warning" or "note"; false for any other word.
bool parseSeverity(const std::string& word, Severity* severity);

// "RULE[,RULE...]" of --disable, added to `rules`. A rule that does not
// exist, or one whose findings stop the load, is refused with a message.
bool parseDisabledRules(const std::string& list, std::vector<std::string>* rules,
                        std::string* error);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_FINDING_FILTER_H
