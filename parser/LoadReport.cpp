#include "LoadReport.h"

#include <algorithm>

#include "TuningFileParser.h"

namespace ovela {

namespace {

// The most lines that a folded finding lists.
constexpr size_t kListedLines = 8;

std::string linesText(std::vector<long> lines) {
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

void LoadReport::add(const LoadRule& rule, long line, std::string message) {
    addAt(rule, line, 0, std::move(message));
}

void LoadReport::addAt(const LoadRule& rule, long line, long column, std::string message) {
    mFindings.push_back({rule.severity, rule.name, line, column, std::move(message)});
}

void LoadReport::addRepeated(const LoadRule& rule, long line, std::string one, std::string many,
                             size_t elements) {
    for (Repeated& repeated : mRepeated) {
        if (repeated.rule == &rule && repeated.many == many) {
            repeated.lines.push_back(line);
            repeated.elements += elements;
            return;
        }
    }
    mRepeated.push_back({&rule, std::move(one), std::move(many), {line}, elements});
}

void LoadReport::discardSince(const Mark& mark) {
    mFindings.resize(std::min(mFindings.size(), mark.findings));
    mRepeated.resize(std::min(mRepeated.size(), mark.repeated));
    mEntities.clear();
    mValues.clear();
}

std::vector<LoadFinding> LoadReport::findings() const {
    std::vector<LoadFinding> all = mFindings;
    for (const Repeated& repeated : mRepeated) {
        const long first = *std::min_element(repeated.lines.begin(), repeated.lines.end());
        const Severity severity = repeated.rule->severity;
        if (repeated.lines.size() == 1) {
            all.push_back({severity, repeated.rule->name, first, 0, repeated.one});
        } else {
            std::string where =
                std::to_string(repeated.lines.size()) + " times: " + linesText(repeated.lines);
            if (repeated.elements != 0) {
                where += "; " + std::to_string(repeated.elements) + " elements in all";
            }
            all.push_back(
                {severity, repeated.rule->name, first, 0, repeated.many + " (" + where + ")"});
        }
    }
    return all;
}

bool LoadReport::hasErrors() const {
    return std::any_of(mFindings.begin(), mFindings.end(),
                       [](const LoadFinding& f) { return f.severity == Severity::ERROR; });
}

void LoadReport::recordEntity(const void* entity, long line, std::string label, const char* kind) {
    EntityRecord& record = mEntities[entity];
    record.line = line;
    record.label = std::move(label);
    record.kind = kind;
}

long LoadReport::lineOf(const void* entity) const {
    auto found = mEntities.find(entity);
    return found == mEntities.end() ? 0 : found->second.line;
}

std::string LoadReport::labelOf(const void* entity) const {
    auto found = mEntities.find(entity);
    return found == mEntities.end() ? std::string() : found->second.label;
}

std::string LoadReport::linesOf(const std::vector<const void*>& entities) const {
    std::vector<long> lines;
    for (const void* entity : entities) {
        lines.push_back(lineOf(entity));
    }
    std::sort(lines.begin(), lines.end());
    std::vector<std::string> texts;
    for (long line : lines) {
        texts.push_back(std::to_string(line));
    }
    return "lines " + listOf(texts);
}

long LoadReport::lastLineOf(const std::vector<const void*>& entities) const {
    long last = 0;
    for (const void* entity : entities) {
        last = std::max(last, lineOf(entity));
    }
    return last;
}

long LoadReport::recordValue(const void* entity, Parameter parameter, long line,
                             std::string xmlName) {
    auto [it, inserted] = mValues.insert({{entity, parameter}, {line, xmlName, false}});
    if (inserted) {
        return 0;
    }
    const long earlier = it->second.line;
    it->second = {line, std::move(xmlName), false};
    return earlier;
}

void LoadReport::recordGathered(const void* entity, Parameter parameter, long line,
                                std::string xmlName) {
    mValues.insert({{entity, parameter}, {line, std::move(xmlName), false}});
}

void LoadReport::forget(const void* entity) {
    mEntities.erase(entity);
    auto first = mValues.lower_bound({entity, static_cast<Parameter>(0)});
    auto last = first;
    while (last != mValues.end() && last->first.first == entity) {
        ++last;
    }
    mValues.erase(first, last);
}

void LoadReport::markUsed(const void* entity) {
    mEntities[entity].used = true;
}

void LoadReport::markSent(const void* entity, Parameter parameter) {
    auto found = mValues.find({entity, parameter});
    if (found != mValues.end()) {
        found->second.sent = true;
    }
}

bool LoadReport::isSent(const void* entity, Parameter parameter) const {
    auto found = mValues.find({entity, parameter});
    return found != mValues.end() && found->second.sent;
}

std::string LoadReport::xmlNameOf(const void* entity, Parameter parameter) const {
    auto found = mValues.find({entity, parameter});
    return found == mValues.end() ? kParameterNames[parameter] : found->second.xmlName;
}

void LoadReport::settle(const void* entity) {
    mEntities[entity].settled = true;
}

bool LoadReport::isSettled(const void* entity) const {
    auto found = mEntities.find(entity);
    return found != mEntities.end() && found->second.settled;
}

void LoadReport::reportUnsent() {
    for (const auto& [entity, record] : mEntities) {
        if (!record.used && !record.settled && record.line != 0) {
            addRepeated(
                rules::kNeverSent, record.line,
                record.label + " is read but never sent: no array carries it",
                std::string(record.kind) + " are read but never sent: no array carries them");
        }
    }
    for (const auto& [key, value] : mValues) {
        if (value.sent) {
            continue;
        }
        auto entity = mEntities.find(key.first);
        if (entity != mEntities.end() && (entity->second.settled || !entity->second.used)) {
            continue;
        }
        const std::string owner =
            entity == mEntities.end() ? std::string() : " of " + entity->second.label;
        addRepeated(rules::kNeverSent, value.line,
                    value.xmlName + owner + " is read but never sent: no array carries it",
                    value.xmlName + " is read but never sent: no array carries it");
    }
}

void LoadReport::keepReader(std::unique_ptr<TuningFileParser> reader) {
    mReader = std::move(reader);
}

DeviceData* LoadReport::model() const {
    return mReader == nullptr ? nullptr : mReader->getDeviceData();
}

}  // namespace ovela
