#include "FindingFilter.h"

#include <algorithm>

namespace ovela::tune {

size_t ShownFindings::shownCount(Severity severity) const {
    return std::count_if(shown.begin(), shown.end(),
                         [&](const LoadFinding& finding) { return finding.severity == severity; });
}

ShownFindings showFindings(const LoadedFile& file, const FindingFilter& filter) {
    ShownFindings result;
    for (LoadFinding& finding : file.findings()) {
        const bool disabled = std::find(filter.disabled.begin(), filter.disabled.end(),
                                        finding.rule) != filter.disabled.end();
        if (finding.suppressed || (disabled && finding.severity != Severity::ERROR)) {
            result.suppressed.push_back(std::move(finding));
        } else if (finding.severity > filter.threshold) {
            ++result.hidden[static_cast<size_t>(finding.severity)];
        } else {
            result.shown.push_back(std::move(finding));
        }
    }
    return result;
}

bool parseSeverity(const std::string& word, Severity* severity) {
    for (Severity candidate : {Severity::ERROR, Severity::WARNING, Severity::NOTE}) {
        if (word == severityName(candidate)) {
            *severity = candidate;
            return true;
        }
    }
    return false;
}

bool parseDisabledRules(const std::string& list, std::vector<std::string>* rules,
                        std::string* error) {
    size_t at = 0;
    while (at <= list.size()) {
        const size_t comma = std::min(list.size(), list.find(',', at));
        const std::string name = list.substr(at, comma - at);
        at = comma + 1;
        if (name.empty()) {
            continue;
        }
        const LoadRule* rule = ruleNamed(name);
        if (rule == nullptr) {
            *error = "--disable: no rule is named " + name + " (check --rules lists them)";
            return false;
        }
        if (rule->severity == Severity::ERROR) {
            *error =
                "--disable: " + name + " says why a file does not load, which cannot be accepted";
            return false;
        }
        rules->push_back(name);
    }
    return true;
}

}  // namespace ovela::tune
