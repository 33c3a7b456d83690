#include "ParameterValues.h"

#include <utility>

namespace ovela {

ParameterValues::ParameterValues(long long id, bool dirty) : mId(id), mDirty(dirty) {}

ParameterValues::~ParameterValues() = default;

bool ParameterValues::isDirty() {
    return mDirty;
}

void ParameterValues::setDirty(bool dirty) {
    mDirty = dirty;
}

void ParameterValues::set(Parameter param, const std::vector<int>& list) {
    values[param] = list;
    mDirty = true;
}

void ParameterValues::set(Parameter param, std::vector<int>&& list) {
    values[param] = std::move(list);
    mDirty = true;
}

std::string ParameterValues::valuesToString() {
    std::string text;
    for (const auto& [param, list] : values) {
        if (param == IEQ_ID) {
            continue;
        }
        text += kParameterNames[param];
        text += '=';
        for (int value : list) {
            text += std::to_string(value);
            text += ',';
        }
        text += '\n';
    }
    return text;
}

std::string ParameterValues::describe(const std::string& fields) {
    return "id=" + std::to_string(mId) + "\n" + fields + valuesToString();
}

bool ParameterValues::sameValues(const ParameterValues& other) const {
    return values == other.values;
}

}  // namespace ovela
