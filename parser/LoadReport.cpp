#include "LoadReport.h"

#include <algorithm>

#include "TuningFileParser.h"

namespace ovela {

namespace {

// The most lines that a folded finding lists.
constexpr size_t kListedLines = 8;

std::string linesText(const std::vector<Place>& places) {
    std::vector<long> lines;
    for (const Place& place : places) {
        lines.push_back(place.line);
    }
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    std::string text = lines.size() == 1 ? "line " : "lines ";
    for (size_t i = 0; i < lines.size() && i < kListedLines; ++i) {
        text += (i == 0 ? "" : ", ") + std::to_string(lines[i]);
    }
    if (lines.size() > kListedLines) {
        text += ", ...";
    }
    return text;
}

LoadFinding findingAt(Rule rule, const Place& at, std::string message) {
    return {ruleOf(rule).severity, ruleOf(rule).name, at.line, at.column, at.endLine,
            at.endColumn,          std::move(message)};
}

bool isEarlier(const Place& a, const Place& b) {
    return a.line < b.line || (a.line == b.line && a.column < b.column);
}

}  // namespace

std::string listOf(const std::vector<std::string>& items) {
    std::string text;
    for (size_t i = 0; i < items.size(); ++i) {
        text += (i == 0 ? "" : i + 1 == items.size() ? " and " : ", ") + items[i];
    }
    return text;
}

LoadReport::LoadReport() = default;

LoadReport::~LoadReport() = default;

void LoadReport::add(Rule rule, const Place& at, Slots slots) {
    mFindings.push_back(findingAt(rule, at, messageOf(ruleOf(rule), slots)));
}

void LoadReport::addRepeated(Rule rule, const Place& at, Slots one, Slots many, size_t elements) {
    std::string manyText = messageOf(ruleOf(rule), many);
    for (Repeated& repeated : mRepeated) {
        if (repeated.rule == rule && repeated.many == manyText) {
            repeated.places.push_back(at);
            repeated.elements += elements;
            return;
        }
    }
    mRepeated.push_back({rule, messageOf(ruleOf(rule), one), std::move(manyText), {at}, elements});
}

void LoadReport::discardSince(const Mark& mark) {
    mFindings.resize(std::min(mFindings.size(), mark.findings));
    mRepeated.resize(std::min(mRepeated.size(), mark.repeated));
    mTrace.clearEntities();
}

namespace {

// Marks which rules of which suppressions silence something.
class SuppressionUse {
  public:
    explicit SuppressionUse(const std::vector<Suppression>& suppressions)
        : mSuppressions(suppressions) {
        for (const Suppression& suppression : suppressions) {
            mUsed.emplace_back(suppression.rules.size(), false);
        }
    }

    // Whether a suppression silences a finding of `rule` at `at`. Errors say
    // why the file does not load, which no comment can accept.
    bool silences(const std::string& rule, Severity severity, const Place& at) {
        if (severity == Severity::ERROR) {
            return false;
        }
        bool silenced = false;
        for (size_t i = 0; i < mSuppressions.size(); ++i) {
            const std::vector<std::string>& rules = mSuppressions[i].rules;
            for (size_t j = 0; j < rules.size(); ++j) {
                if (rules[j] == rule && mSuppressions[i].silences(rule, at)) {
                    mUsed[i][j] = true;
                    silenced = true;
                }
            }
        }
        return silenced;
    }

    // A note for every rule of a suppression that silenced nothing.
    void addUnused(std::vector<LoadFinding>& findings) const {
        for (size_t i = 0; i < mSuppressions.size(); ++i) {
            const Suppression& suppression = mSuppressions[i];
            if (suppression.rules.empty()) {
                findings.push_back(unused(suppression, "", "the comment names no rule"));
            }
            for (size_t j = 0; j < suppression.rules.size(); ++j) {
                if (!mUsed[i][j]) {
                    findings.push_back(unused(suppression, suppression.rules[j],
                                              whyUnused(suppression, suppression.rules[j])));
                }
            }
        }
    }

  private:
    static LoadFinding unused(const Suppression& suppression, const std::string& rule,
                              const char* why) {
        const LoadRule& row = ruleOf(Rule::UNUSED_SUPPRESSION);
        return findingAt(Rule::UNUSED_SUPPRESSION, suppression.comment,
                         messageOf(row, {{"rule", rule}, {"why", why}}));
    }

    static const char* whyUnused(const Suppression& suppression, const std::string& name) {
        const LoadRule* row = ruleNamed(name);
        if (row == nullptr) {
            return "no rule has this name (ovela-tune check --rules lists them)";
        }
        if (row->severity == Severity::ERROR) {
            return "a finding that stops the load cannot be accepted";
        }
        if (row->rule == Rule::UNUSED_SUPPRESSION) {
            return "only --disable silences it";
        }
        if (suppression.wholeFile) {
            return "the file draws no such finding";
        }
        return suppression.scope.line == 0 ? "no element follows the comment"
                                           : "the element that follows draws no such finding";
    }

    const std::vector<Suppression>& mSuppressions;
    std::vector<std::vector<bool>> mUsed;
};

}  // namespace

std::vector<LoadFinding> LoadReport::findings() const {
    SuppressionUse use(mSuppressions);
    std::vector<LoadFinding> all = mFindings;
    for (LoadFinding& finding : all) {
        const Place at{finding.line, finding.column, finding.endLine, finding.endColumn};
        finding.suppressed = use.silences(finding.rule, finding.severity, at);
    }
    for (const Repeated& repeated : mRepeated) {
        // The occurrences that a comment accepts fold apart from the others.
        const LoadRule& row = ruleOf(repeated.rule);
        std::vector<Place> places[2];
        for (const Place& place : repeated.places) {
            places[use.silences(row.name, row.severity, place)].push_back(place);
        }
        for (bool suppressed : {false, true}) {
            if (!places[suppressed].empty()) {
                all.push_back(folded(repeated, places[suppressed]));
                all.back().suppressed = suppressed;
            }
        }
    }
    use.addUnused(all);
    return all;
}

LoadFinding LoadReport::folded(const Repeated& repeated, const std::vector<Place>& places) {
    const Place first = *std::min_element(places.begin(), places.end(), isEarlier);
    if (places.size() == 1) {
        return findingAt(repeated.rule, first, repeated.one);
    }
    std::string where = std::to_string(places.size()) + " times: " + linesText(places);
    // The elements are counted for all occurrences together.
    if (repeated.elements != 0 && places.size() == repeated.places.size()) {
        where += "; " + std::to_string(repeated.elements) + " elements in all";
    }
    return findingAt(repeated.rule, first, repeated.many + " (" + where + ")");
}

bool LoadReport::hasErrors() const {
    return std::any_of(mFindings.begin(), mFindings.end(),
                       [](const LoadFinding& f) { return f.severity == Severity::ERROR; });
}

void LoadReport::reportUnsent() {
    for (const TracedEntity* entity : mTrace.entities()) {
        if (entity->settled) {
            continue;
        }
        if (!entity->used) {
            if (entity->place.line != 0) {
                addRepeated(Rule::NEVER_SENT, entity->place, {{"what", entity->label}},
                            {{"what", entity->kind}});
            }
            continue;
        }
        for (const TracedValues& values : entity->values) {
            if (values.fate != Fate::NEVER_SENT) {
                continue;
            }
            const Source& source = values.sources.front();
            addRepeated(Rule::NEVER_SENT, source.place,
                        {{"what", nameOf(source) + " of " + entity->label}},
                        {{"what", nameOf(source)}});
        }
    }
}

void LoadReport::keepReader(std::unique_ptr<TuningFileParser> reader) {
    mReader = std::move(reader);
}

DeviceData* LoadReport::model() const {
    return mReader == nullptr ? nullptr : mReader->getDeviceData();
}

}  // namespace ovela
