#ifndef OVELA_TESTS_TUNING_FILE_TEXT_H
#define OVELA_TESTS_TUNING_FILE_TEXT_H

#include <string>

// Small tuning files written out as the store's tests need them. They are
// indented: the reader skips the blank text before the first child of every
// element it descends into.
namespace ovela::testing {

inline std::string tuningFile(const std::string& sections, const std::string& doctype = "") {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + doctype + "<tuning_file>\n" + sections +
           "</tuning_file>\n";
}

// A profile with the given settings (parameter and endpoint_type elements).
inline std::string profile(int id, const std::string& settings) {
    return "    <profile id=\"" + std::to_string(id) + "\" name=\"p" + std::to_string(id) +
           "\">\n        <settings>\n" + settings +
           "        </settings>\n        <include preset=\"ieq_balanced\"/>\n    </profile>\n";
}

inline std::string endpoint(const std::string& name, const std::string& settings) {
    return "            <endpoint_type id=\"" + name + "\">\n" + settings +
           "            </endpoint_type>\n";
}

inline std::string tuning(const std::string& attributes, const std::string& data) {
    return "    <tuning " + attributes + ">\n        <data>\n" + data +
           "        </data>\n    </tuning>\n";
}

}  // namespace ovela::testing

#endif  // OVELA_TESTS_TUNING_FILE_TEXT_H
