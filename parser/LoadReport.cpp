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

std::vector<LoadFinding> LoadReport::findings() const {
    std::vector<LoadFinding> all = mFindings;
    for (const Repeated& repeated : mRepeated) {
        const Place first =
            *std::min_element(repeated.places.begin(), repeated.places.end(), isEarlier);
        if (repeated.places.size() == 1) {
            all.push_back(findingAt(repeated.rule, first, repeated.one));
            continue;
        }
        std::string where =
            std::to_string(repeated.places.size()) + " times: " + linesText(repeated.places);
        if (repeated.elements != 0) {
            where += "; " + std::to_string(repeated.elements) + " elements in all";
        }
        all.push_back(findingAt(repeated.rule, first, repeated.many + " (" + where + ")"));
    }
    return all;
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
