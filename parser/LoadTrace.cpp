#include "LoadTrace.h"

#include <algorithm>
#include <utility>

namespace ovela {

std::string nameOf(const Source& source) {
    return source.attribute.empty() ? source.element : source.element + " " + source.attribute;
}

const char* fateName(Fate fate) {
    switch (fate) {
        case Fate::SENT:
            return "sent";
        case Fate::NEVER_SENT:
            return "never sent";
        case Fate::REPLACED:
            return "replaced by a later one";
        case Fate::DROPPED:
            return "dropped with its composite entry";
        case Fate::SKIPPED:
            return "skipped with its section";
        case Fate::EMPTY:
            return "empty";
    }
    return "";
}

void LoadTrace::recordEntity(const void* entity, Place place, std::string label, const char* kind) {
    auto [found, added] = mEntities.try_emplace(entity);
    if (added) {
        mOrder.push_back(entity);
    }
    TracedEntity& traced = found->second;
    traced.label = std::move(label);
    traced.kind = kind;
    traced.place = place;
}

void LoadTrace::forget(const void* entity) {
    mEntities.erase(entity);
    mOrder.erase(std::remove(mOrder.begin(), mOrder.end(), entity), mOrder.end());
}

TracedValues* LoadTrace::current(const void* entity, Parameter parameter) {
    auto found = mEntities.find(entity);
    if (found == mEntities.end()) {
        return nullptr;
    }
    std::vector<TracedValues>& values = found->second.values;
    for (auto it = values.rbegin(); it != values.rend(); ++it) {
        if (it->parameter == parameter && it->fate != Fate::REPLACED) {
            return &*it;
        }
    }
    return nullptr;
}

const Place* LoadTrace::recordValue(const void* entity, Parameter parameter, Source source) {
    auto found = mEntities.find(entity);
    if (found == mEntities.end()) {
        return nullptr;
    }
    TracedValues* earlier = current(entity, parameter);
    if (earlier != nullptr) {
        earlier->fate = Fate::REPLACED;
    }
    std::vector<TracedValues>& values = found->second.values;
    const size_t earlierIndex = earlier == nullptr ? 0 : earlier - values.data();
    values.push_back({parameter, {std::move(source)}, Fate::NEVER_SENT});
    return earlier == nullptr ? nullptr : &values[earlierIndex].sources.front().place;
}

void LoadTrace::gatherValue(const void* entity, Parameter parameter, Source source) {
    if (TracedValues* values = current(entity, parameter)) {
        values->sources.push_back(std::move(source));
        return;
    }
    auto found = mEntities.find(entity);
    if (found != mEntities.end()) {
        found->second.values.push_back({parameter, {std::move(source)}, Fate::NEVER_SENT});
    }
}

void LoadTrace::markUsed(const void* entity) {
    auto found = mEntities.find(entity);
    if (found != mEntities.end()) {
        found->second.used = true;
    }
}

void LoadTrace::setFate(const void* entity, Parameter parameter, Fate fate) {
    if (TracedValues* values = current(entity, parameter)) {
        values->fate = fate;
    }
}

void LoadTrace::setFates(const void* entity, Fate fate) {
    auto found = mEntities.find(entity);
    if (found == mEntities.end()) {
        return;
    }
    for (TracedValues& values : found->second.values) {
        if (values.fate != Fate::REPLACED) {
            values.fate = fate;
        }
    }
}

void LoadTrace::settle(const void* entity) {
    auto found = mEntities.find(entity);
    if (found != mEntities.end()) {
        found->second.settled = true;
    }
}

const TracedEntity* LoadTrace::entityOf(const void* entity) const {
    auto found = mEntities.find(entity);
    return found == mEntities.end() ? nullptr : &found->second;
}

const TracedValues* LoadTrace::valuesOf(const void* entity, Parameter parameter) const {
    return const_cast<LoadTrace*>(this)->current(entity, parameter);
}

Place LoadTrace::placeOf(const void* entity) const {
    const TracedEntity* traced = entityOf(entity);
    return traced == nullptr ? Place() : traced->place;
}

std::string LoadTrace::labelOf(const void* entity) const {
    const TracedEntity* traced = entityOf(entity);
    return traced == nullptr ? std::string() : traced->label;
}

std::vector<const TracedEntity*> LoadTrace::entities() const {
    std::vector<const TracedEntity*> all;
    for (const void* entity : mOrder) {
        all.push_back(&mEntities.at(entity));
    }
    return all;
}

void LoadTrace::clearEntities() {
    mEntities.clear();
    mOrder.clear();
}

}  // namespace ovela
