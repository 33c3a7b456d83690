#include "Tuning.h"

#include <utility>

namespace ovela {

const std::set<Parameter> Tuning::kValidParams = validParamsOf(EntityClass::TUNING);

const std::map<std::string, Endpoint> Tuning::kEndpNameToEndpoint = {
    {"speaker", ENDPOINT_SPEAKER},
    {"headphone", ENDPOINT_HEADPHONE},
    {"other", ENDPOINT_OTHER},
};

Tuning::Tuning(std::string name, Endpoint endpoint, bool mono)
    : Tuning(-1, std::move(name), endpoint, mono, true) {
    mDirty = true;
}

Tuning::Tuning(long long id, std::string name, Endpoint endpoint, bool mono, bool readonly)
    : ParameterValues(id, false),
      mName(std::move(name)),
      mEndpoint(endpoint),
      mMono(mono),
      mReadonly(readonly) {}

long long Tuning::getId() {
    return mId;
}

const std::set<Parameter>& Tuning::getValidParams() {
    return kValidParams;
}

std::string Tuning::getName() {
    return mName;
}

Endpoint Tuning::getEndpoint() {
    return mEndpoint;
}

bool Tuning::isMono() {
    return mMono;
}

bool Tuning::isReadonly() {
    return mReadonly;
}

void Tuning::setMono(bool mono) {
    mMono = mono;
}

void Tuning::setEndpoint(std::string name) {
    auto found = kEndpNameToEndpoint.find(name);
    if (found != kEndpNameToEndpoint.end()) {
        mEndpoint = found->second;
    }
}

std::string Tuning::toString() {
    return describe("name=" + mName + "\nendpoint=" + endpointName(mEndpoint) +
                    "\nmono=" + (mMono ? "true" : "false") +
                    "\nreadonly=" + (mReadonly ? "true" : "false") + "\n");
}

}  // namespace ovela
