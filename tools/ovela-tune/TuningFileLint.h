#ifndef OVELA_TUNE_TUNING_FILE_LINT_H
#define OVELA_TUNE_TUNING_FILE_LINT_H

#include <libxml/tree.h>
#include <ovela/Parameter.h>
#include <ovela/TuningFileVocabulary.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace ovela::tune {

struct Finding {
    long line;
    std::string message;
};

// Walks a tuning file as the reader does and reports, with line numbers,
// what the reader accepts silently but a tuning engineer wants to know:
// unknown names, names that fall back to a default, values that are not
// numbers, lists that cannot form their composite entry, duplicates, and
// shapes that lose data or fail the load.
class TuningFileLint {
  public:
    std::vector<Finding> run(xmlNode* root);
    // The tunings that the reader keeps (those with a data element), each
    // with the line of its last definition.
    const std::map<std::string, long>& tunings() const { return mTuningLines; }

  private:
    // Document level.
    void checkVersion(xmlNode* element);
    void checkGeneral(xmlNode* general);
    void checkPreset(xmlNode* preset);
    void checkProfile(xmlNode* profile);
    // An "endpoint_type" section inside `owner` (a general or a profile
    // section): its endpoint, once per owner, and its elements, which
    // `checkElement` checks, returning false for an unknown name.
    void checkEndpointSection(xmlNode* endpointType, const std::string& owner,
                              std::set<std::string>* seen,
                              const std::vector<std::string_view>& knownElements,
                              const std::function<bool(xmlNode*)>& checkElement);
    void checkTuning(xmlNode* tuning);
    void checkTuningData(xmlNode* data, const std::string& tuningName);
    template <typename Columns>
    void checkBands(xmlNode* element, const Columns& columns, std::map<Parameter, size_t>* lengths);
    void checkOutputMode(xmlNode* outputMode);

    // Shared rules.
    void report(const xmlNode* node, const std::string& message);
    void checkIndented(xmlNode* parent);
    void checkAttributes(xmlNode* element, const std::vector<std::string_view>& known);
    // A setting element: one number or truth word in its first attribute "value".
    void checkSetting(xmlNode* element);
    // A profile or profile endpoint element by its shape; false for a name
    // that `elements` lacks.
    bool checkValueElement(xmlNode* element, const NameTable<ElementValue>& elements);
    // A row of numbers in the element's first attribute; returns its length.
    size_t checkRow(xmlNode* element);
    void checkNumber(const xmlNode* element, const std::string& what, const std::string& text);
    // The endpoint that an "endpoint_type" element names by its first
    // attribute "id"; reports a name that falls back to `fallback`.
    std::string checkEndpointId(xmlNode* element, const char* fallback);
    void checkEndpointName(xmlNode* element, const std::string& name, const char* fallback);
    void checkComposites(xmlNode* data, const std::string& tuningName,
                         const std::map<Parameter, size_t>& lengths);

    std::vector<Finding> mFindings;
    std::map<int, long> mProfileLines;
    std::map<std::string, long> mTuningLines;
    long mGeneralLine = 0;
};

}  // namespace ovela::tune

#endif  // OVELA_TUNE_TUNING_FILE_LINT_H
