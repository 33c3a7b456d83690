#ifndef OVELA_TUNE_JSON_OUTPUT_H
#define OVELA_TUNE_JSON_OUTPUT_H

#include <nlohmann/json.hpp>
#include <ostream>

namespace ovela::tune {

// Writes `document` as indented JSON; bytes that are not UTF-8 (a path's)
// show as U+FFFD instead of stopping the tool.
inline void writeJson(const nlohmann::json& document, std::ostream& out) {
    out << document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

}  // namespace ovela::tune

#endif  // OVELA_TUNE_JSON_OUTPUT_H
