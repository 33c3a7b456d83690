#include <android/log.h>
#include <libxml/hash.h>
#include <libxml/parser.h>

#include <algorithm>
#include <memory>

#include "Commands.h"
#include "PackedArrays.h"
#include "TuningFileLint.h"

namespace ovela::tune {

namespace {

// The name under which the store folds a tuning into the general array
// instead of keeping an array for it.
constexpr char kDefaultTuning[] = "default";

struct DocumentFree {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

// Loads the file into a store of its own, with the library's log lines kept
// out of the report, and names the tunings that no endpoint can select.
std::vector<Finding> unselectableTunings(const std::string& path,
                                         const std::map<std::string, long>& tunings) {
    int previous = __android_log_get_minimum_priority();
    __android_log_set_minimum_priority(ANDROID_LOG_SILENT);
    ProfileParamArray store(path);
    __android_log_set_minimum_priority(previous);

    std::vector<Finding> findings;
    if (!storeLoaded(store)) {
        return findings;  // the lint has said why
    }
    std::vector<std::string> available = allTunings(store);
    for (const auto& [name, line] : tunings) {
        if (name != kDefaultTuning &&
            std::find(available.begin(), available.end(), name) == available.end()) {
            findings.push_back({line, "tuning " + name +
                                          " gives the effect no values: no endpoint can "
                                          "select it"});
        }
    }
    return findings;
}

}  // namespace

int runCheck(const CommandLine& line, std::ostream& out, std::ostream& err) {
    if (line.positional().size() != 1) {
        err << "ovela-tune check: give one tuning file\n";
        return kExitUsage;
    }
    const std::string& path = line.positional()[0];
    // Read as the library reads it: no options, so whitespace nodes and line
    // numbers are as the reader sees them.
    std::unique_ptr<xmlDoc, DocumentFree> document(xmlReadFile(path.c_str(), nullptr, 0));
    xmlNode* root = document == nullptr ? nullptr : xmlDocGetRootElement(document.get());
    if (root == nullptr) {
        out << path << ": not a tuning file (no XML document): the load fails\n";
        return kExitFindings;
    }

    TuningFileLint lint;
    std::vector<Finding> findings = lint.run(root);
    const xmlDtd* declarations = document->intSubset;
    if (declarations != nullptr && declarations->entities != nullptr &&
        xmlHashSize(static_cast<xmlHashTablePtr>(declarations->entities)) > 0) {
        findings.push_back({xmlGetLineNo(root),
                            "the file declares entities, which a tuning file has no use for: "
                            "the reader expands their references in attribute values (up to a "
                            "limit), check reads them as written"});
    }
    for (const Finding& finding : unselectableTunings(path, lint.tunings())) {
        findings.push_back(finding);
    }
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    for (const Finding& finding : findings) {
        out << path << ":" << finding.line << ": " << finding.message << "\n";
    }
    if (findings.empty()) {
        out << path << ": clean\n";
        return kExitOk;
    }
    out << path << ": " << findings.size() << (findings.size() == 1 ? " finding\n" : " findings\n");
    return kExitFindings;
}

}  // namespace ovela::tune
