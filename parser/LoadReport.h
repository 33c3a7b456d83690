#ifndef OVELA_LOAD_REPORT_H
#define OVELA_LOAD_REPORT_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "LoadRules.h"
#include "LoadTrace.h"
#include "SourcePositions.h"
#include "Suppressions.h"

namespace ovela {

class DeviceData;
class TuningFileParser;

// A decision of a load that the file's author would want to know, at its
// place in the file.
struct LoadFinding {
    Severity severity;
    std::string rule;  // the rule's stable name, such as "unknown-element"
    long line;         // 0 when the finding concerns the whole file
    long column;       // 1-based; 0 where the parser cannot tell
    long endLine;      // where the element or attribute it concerns ends
    long endColumn;
    std::string message;
    // A suppression comment of the file accepts it.
    bool suppressed = false;
};

// "a", "a and b", "a, b and c".
std::string listOf(const std::vector<std::string>& items);

// The record of one load of a tuning file: its findings, every decision that
// the file's author would want to know (what was skipped, replaced, changed,
// dropped or never sent, and whether the file loads), and its trace, where
// everything read and stored came from. The reader and the store write it
// where they decide; a load without a report logs as always and pays one
// pointer test at each place that could report. Every view of a load (check,
// dump, diff, report, the editor's) reads this record and nothing else of
// the file.
class LoadReport {
  public:
    LoadReport();
    ~LoadReport();
    LoadReport(const LoadReport&) = delete;
    LoadReport& operator=(const LoadReport&) = delete;

    // ---- Findings
    void add(Rule rule, const Place& at, Slots slots);
    // One cause that shows in many places: reported once, at its first place,
    // with `one` when it occurs once and with `many`, the count and the lines
    // otherwise. Occurrences fold by rule and by the message of `many`;
    // `elements` counts the elements that an occurrence took down, summed in
    // the folded finding.
    void addRepeated(Rule rule, const Place& at, Slots one, Slots many, size_t elements = 0);
    // What the report holds at one moment, to take back what came after.
    struct Mark {
        size_t findings;
        size_t repeated;
    };
    Mark mark() const { return {mFindings.size(), mRepeated.size()}; }
    // Forgets the findings added since `mark`, and the whole trace: a load
    // whose file turns out unreadable says only why.
    void discardSince(const Mark& mark);
    // The file's suppression comments, which findings() applies.
    void setSuppressions(std::vector<Suppression> suppressions) {
        mSuppressions = std::move(suppressions);
    }
    const std::vector<Suppression>& suppressions() const { return mSuppressions; }

    // Every finding, repeated causes folded, in the order they were found;
    // those that a suppression comment accepts are marked, and every rule
    // that a suppression names and silences nothing gives a note of its own.
    // A file that does not load says why whatever the comments ask.
    std::vector<LoadFinding> findings() const;
    bool hasErrors() const;

    // ---- Trace
    LoadTrace& trace() { return mTrace; }
    const LoadTrace& trace() const { return mTrace; }
    // Adds a note for every entity that the store never looked at, and for
    // the values of the others that no array carries, unless a finding
    // already says what became of them.
    void reportUnsent();

    // ---- The load's results
    // The reader that the load used, kept with its model.
    void keepReader(std::unique_ptr<TuningFileParser> reader);
    // The model of the file; null when the file did not load or no store kept it.
    DeviceData* model() const;

  private:
    struct Repeated {
        Rule rule;
        std::string one;
        std::string many;
        std::vector<Place> places;
        size_t elements;
    };

    // `places`, some or all of those of `repeated`, as one finding.
    static LoadFinding folded(const Repeated& repeated, const std::vector<Place>& places);

    std::vector<LoadFinding> mFindings;
    std::vector<Repeated> mRepeated;
    std::vector<Suppression> mSuppressions;
    LoadTrace mTrace;
    std::unique_ptr<TuningFileParser> mReader;
};

}  // namespace ovela

#endif  // OVELA_LOAD_REPORT_H
