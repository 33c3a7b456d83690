#ifndef OVELA_TUNE_LSP_JSON_H
#define OVELA_TUNE_LSP_JSON_H

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

// Reading a client's JSON without trusting it: every accessor answers
// nothing for a missing member or one of another type, where nlohmann's own
// would throw.
namespace ovela::tune::lsp {

using Json = nlohmann::json;

// The member `key` of `object`, or null when `object` is no object or lacks it.
inline const Json* member(const Json& object, const char* key) {
    if (!object.is_object()) {
        return nullptr;
    }
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

inline std::optional<std::string> stringAt(const Json& object, const char* key) {
    const Json* value = member(object, key);
    if (value == nullptr || !value->is_string()) {
        return std::nullopt;
    }
    return value->get<std::string>();
}

inline std::optional<long long> integerAt(const Json& object, const char* key) {
    const Json* value = member(object, key);
    if (value == nullptr || !value->is_number_integer()) {
        return std::nullopt;
    }
    return value->get<long long>();
}

// The member `key` of `object` when it is an object, else an empty object.
inline const Json& objectAt(const Json& object, const char* key) {
    static const Json kEmpty = Json::object();
    const Json* value = member(object, key);
    return value != nullptr && value->is_object() ? *value : kEmpty;
}

}  // namespace ovela::tune::lsp

#endif  // OVELA_TUNE_LSP_JSON_H
