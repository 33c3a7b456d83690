#ifndef OVELA_READER_REPORT_H
#define OVELA_READER_REPORT_H

#include <libxml/tree.h>

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Endpoint.h"
#include "LoadReport.h"
#include "Parameter.h"
#include "PresetType.h"

// What the tuning file reader tells a load report, in the reader's own terms;
// not part of the library's interface. Every operation does nothing unless a
// report is attached, and then only costs the test of one pointer.
namespace ovela {

class ParameterValues;
struct PresetLayout;
struct RowProblems;

using KnownNames = std::vector<std::string_view>;

namespace known {

inline void add(KnownNames&) {}

template <size_t N>
void addOne(KnownNames& names, const char (&name)[N]) {
    names.push_back(name);
}

template <size_t N>
void addOne(KnownNames& names, const char* const (&table)[N]) {
    names.insert(names.end(), table, table + N);
}

template <typename Table>
void addOne(KnownNames& names, const Table& table) {
    for (const auto& entry : table) {
        names.push_back(entry.first);
    }
}

template <typename First, typename... Rest>
void add(KnownNames& names, const First& first, const Rest&... rest) {
    addOne(names, first);
    add(names, rest...);
}

}  // namespace known

// The names of name tables and single names, together.
template <typename... Names>
KnownNames knownNames(const Names&... names) {
    KnownNames all;
    known::add(all, names...);
    return all;
}

// " (did you mean NAME?)" when one of `known` is `name` with a small typo, in
// another letter case or with '-' for '_'; empty otherwise.
std::string didYouMean(std::string_view name, const KnownNames& known);

// `text` in double quotes, with quotes, backslashes and every character that
// does not show as itself escaped: "192\u00a0". A long text shows its start
// and "..." before the closing quote.
std::string quoted(std::string_view text);

// "<name>", as findings write an element.
std::string tagOf(const xmlNode* node);

class ReaderReport {
  public:
    void attach(LoadReport* report) {
        mReport = report;
        mIncludes.clear();
        mEndpointSections.clear();
        mUnreadPresetTypes.clear();
    }
    LoadReport* get() const { return mReport; }
    explicit operator bool() const { return mReport != nullptr; }

    // The reader starts at the second child node of `parent`.
    void descend(const xmlNode* parent) {
        if (mReport != nullptr) reportDescend(parent);
    }
    // The reader takes `taken` (null when there is none), the child node at
    // `position` (2 or 4) of `parent`, as the element that the format names
    // `name`. `otherwise` says what a file that has none there loses.
    void positional(const xmlNode* parent, int position, const xmlNode* taken, const char* name,
                    const char* otherwise) {
        if (mReport != nullptr) reportPositional(parent, position, taken, name, otherwise);
    }
    // The elements from `first` along its siblings are never read; `why`
    // follows "are not read: ".
    void notRead(const xmlNode* first, const std::string& why) {
        if (mReport != nullptr) reportNotRead(first, why);
    }
    // An element that the reader reads whatever its name, which the format
    // names `name`.
    void named(const xmlNode* element, const char* name) {
        if (mReport != nullptr) reportNamed(element, name);
    }
    // The numbers in each row of a matrix.
    void matrixRows(const xmlNode* matrix, const std::vector<size_t>& lengths) {
        if (mReport != nullptr) reportMatrixRows(matrix, lengths);
    }
    template <typename... Names>
    void unknownElement(const xmlNode* element, const Names&... known) {
        if (mReport != nullptr) reportUnknownElement(element, knownNames(known...));
    }
    // Reports the attributes of `element` that are none of `known`.
    template <typename... Names>
    void attributes(const xmlNode* element, const Names&... known) {
        if (mReport != nullptr) reportUnknownAttributes(element, knownNames(known...));
    }
    // A setting element, which the reader read as `readAs`.
    void setting(const xmlNode* element, int readAs) {
        if (mReport != nullptr) reportSetting(element, readAs);
    }
    // A row element whose first attribute held `text`; `emptyAs` is what an
    // empty row becomes ("the entry is not sent").
    void row(const xmlNode* element, const char* attributeName, std::string_view text,
             size_t values, const RowProblems& problems, const char* emptyAs) {
        if (mReport != nullptr) reportRow(element, attributeName, text, values, problems, emptyAs);
    }
    // A number in the attribute `attribute` of `element`, read as string2int reads it.
    void number(const xmlNode* element, std::string_view attribute, std::string_view text,
                int readAs) {
        if (mReport != nullptr) reportNumber(element, attribute, text, readAs, false);
    }
    // A truth word: only "true" is true.
    void truthWord(const xmlNode* element, std::string_view attribute, std::string_view text) {
        if (mReport != nullptr) reportTruthWord(element, attribute, text);
    }
    // The first attribute of an "endpoint_type" element names its endpoint,
    // which the reader read as `readAs`.
    void endpointType(const xmlNode* element, Endpoint readAs) {
        if (mReport != nullptr) reportEndpointType(element, readAs);
    }
    // An endpoint name in `attribute` that the reader read as `readAs`.
    void endpointName(const xmlNode* element, std::string_view attribute, const std::string& text,
                      Endpoint readAs) {
        if (mReport != nullptr) reportEndpointName(element, attribute, text, readAs);
    }
    // What an entity was read from; `label()` names it, asked only when a
    // report is attached.
    template <typename Label>
    void entity(const void* entity, const xmlNode* element, Label label, const char* kind) {
        if (mReport != nullptr) mReport->recordEntity(entity, xmlGetLineNo(element), label(), kind);
    }
    // `entity` took a value for `parameter` from `node`: the element `name`,
    // or its attribute `attribute`. A second value for the same parameter
    // replaces the first.
    void value(const void* entity, Parameter parameter, const xmlNode* node, std::string_view name,
               std::string_view attribute = std::string_view()) {
        if (mReport != nullptr) reportValue(entity, parameter, node, xmlName(name, attribute));
    }
    // As value(), for lists that gather the rows of several elements.
    void gathered(const void* entity, Parameter parameter, const xmlNode* node,
                  std::string_view name, std::string_view attribute) {
        if (mReport != nullptr) {
            mReport->recordGathered(entity, parameter, xmlGetLineNo(node), xmlName(name, attribute));
        }
    }
    // A child element of the root starts: what is told about one section
    // ends here.
    void beginSection() {
        if (mReport != nullptr) {
            mEndpointSections.clear();
            mExplained.clear();
        }
    }
    // libxml2 left the reference to `entity`, which the file does not
    // declare, out of the value of `attribute` of `element`. What the
    // element's values read as follows from that and is not reported again.
    void droppedReference(const xmlNode* element, const std::string& attribute,
                          const std::string& entity) {
        if (mReport != nullptr) reportDroppedReference(element, attribute, entity);
    }
    // An "endpoint_type" section of `owner` (a profile or general element) for
    // `endpoint`: a second one for the same endpoint is sent as well.
    void endpointSection(const xmlNode* owner, const xmlNode* section, Endpoint endpoint) {
        if (mReport != nullptr) reportEndpointSection(owner, section, endpoint);
    }
    // `node` starts a section that replaces `earlier`, which is no longer sent.
    void replaced(const void* earlier, const xmlNode* node, const char* what) {
        if (mReport != nullptr) reportReplaced(earlier, node, what);
    }
    // The preset reference of a profile: `include`, the 4th child node of
    // `profile`, named `presetName`, which the reader read as `readAs`; also
    // the elements of the profile that the reader does not read.
    void include(const void* profileEntity, const xmlNode* profile, const xmlNode* container,
                 const xmlNode* include, const std::string& presetName, PresetType readAs) {
        if (mReport != nullptr) {
            reportInclude(profileEntity, profile, container, include, presetName, readAs);
        }
    }
    // A "preset" element whose type is neither of the known ones.
    void presetType(const xmlNode* preset, const std::string& type) {
        if (mReport != nullptr) reportPresetType(preset, type);
    }
    // An IEQ preset whose id holds no preset word: it reads as `readAs`.
    void ieqPresetId(const xmlNode* preset, const std::string& id, PresetType readAs) {
        if (mReport != nullptr) reportIeqPresetId(preset, id, readAs);
    }
    // The band rows of a preset that loads, as the reader read them.
    void bandRows(const xmlNode* bands, const PresetLayout& layout) {
        if (mReport != nullptr) reportBandRows(bands, layout);
    }
    // The band rows of a preset, which `preset` now holds.
    void bands(const ParameterValues* preset, const PresetLayout& layout, const xmlNode* bands) {
        if (mReport != nullptr) reportBands(preset, layout, bands);
    }
    // The load fails: the preset gives no values for `attribute`.
    void presetWithoutBands(const xmlNode* preset, const PresetLayout& layout,
                            const char* attribute) {
        if (mReport != nullptr) reportPresetWithoutBands(preset, layout, attribute);
    }
    // The attributes of a "tuning" element.
    void tuningAttributes(const xmlNode* tuning, const std::string& endpointName,
                          const std::string& mono) {
        if (mReport != nullptr) reportTuningAttributes(tuning, endpointName, mono);
    }
    // A tuning that the reader drops for want of a data element.
    void noData(const xmlNode* tuning, const std::string& name) {
        if (mReport != nullptr) reportNoData(tuning, name);
    }
    // `data`, the element that the reader takes as the data of `tuningEntity`.
    void dataElement(const void* tuningEntity, const xmlNode* tuning, const xmlNode* data) {
        if (mReport != nullptr) reportDataElement(tuningEntity, tuning, data);
    }
    // The children of an "output-mode" element.
    void outputMode(const xmlNode* outputMode) {
        if (mReport != nullptr) reportOutputMode(outputMode);
    }
    // The frequencies that the rows of the band table `table` gave.
    void bandFrequencies(const void* tuningEntity, const xmlNode* table,
                         const std::vector<int>& frequencies) {
        if (mReport != nullptr) reportBandFrequencies(tuningEntity, table, frequencies);
    }
    // IEQ presets of one type, more than one.
    void duplicatePresets(const std::vector<const void*>& presets, PresetType type);
    // Once the file is read: the profile selects `type`, which `defined` says
    // whether an IEQ preset of the file has.
    void selection(const void* profileEntity, PresetType type, bool defined);
    LoadReport::Mark mark() const {
        return mReport != nullptr ? mReport->mark() : LoadReport::Mark{0, 0};
    }
    void discardSince(const LoadReport::Mark& mark) {
        if (mReport != nullptr) mReport->discardSince(mark);
    }
    void forget(const void* entity) {
        if (mReport != nullptr) mReport->forget(entity);
    }
    // A finding about `node`, or about the whole file when it is null.
    void add(const LoadRule& rule, const xmlNode* node, const std::string& message) {
        if (mReport != nullptr)
            mReport->add(rule, node == nullptr ? 0 : xmlGetLineNo(node), message);
    }

  private:
    // "element" or "element attribute", as findings name a value.
    static std::string xmlName(std::string_view name, std::string_view attribute) {
        return attribute.empty() ? std::string(name)
                                 : std::string(name) + " " + std::string(attribute);
    }
    void reportDescend(const xmlNode* parent);
    void reportPositional(const xmlNode* parent, int position, const xmlNode* taken,
                          const char* name, const char* otherwise);
    void reportNotRead(const xmlNode* first, const std::string& why);
    void reportNamed(const xmlNode* element, const char* name);
    void reportMatrixRows(const xmlNode* matrix, const std::vector<size_t>& lengths);
    void reportUnknownElement(const xmlNode* element, const KnownNames& known);
    void reportUnknownAttributes(const xmlNode* element, const KnownNames& known);
    // The attributes after `first` of `element`, which the reader ignores;
    // `why` ends each finding.
    void reportAttributesAfter(const xmlNode* element, const xmlAttr* first, const char* why);
    void reportSetting(const xmlNode* element, int readAs);
    void reportRow(const xmlNode* element, const char* attributeName, std::string_view text,
                   size_t values, const RowProblems& problems, const char* emptyAs);
    void reportNumber(const xmlNode* element, std::string_view attribute, std::string_view text,
                      int readAs, bool truthWords);
    void reportTruthWord(const xmlNode* element, std::string_view attribute, std::string_view text);
    void reportEndpointType(const xmlNode* element, Endpoint readAs);
    void reportEndpointName(const xmlNode* element, std::string_view attribute,
                            const std::string& text, Endpoint readAs);
    void reportValue(const void* entity, Parameter parameter, const xmlNode* node,
                     const std::string& xmlName);
    void reportReplaced(const void* earlier, const xmlNode* node, const char* what);
    void reportEndpointSection(const xmlNode* owner, const xmlNode* section, Endpoint endpoint);
    void reportPresetType(const xmlNode* preset, const std::string& type);
    void reportIeqPresetId(const xmlNode* preset, const std::string& id, PresetType readAs);
    void reportBandRows(const xmlNode* bands, const PresetLayout& layout);
    void reportBandValue(const xmlNode* row, std::string_view attribute, const std::string& text);
    void reportBands(const ParameterValues* preset, const PresetLayout& layout,
                     const xmlNode* bands);
    void reportPresetWithoutBands(const xmlNode* preset, const PresetLayout& layout,
                                  const char* attribute);
    void reportTuningAttributes(const xmlNode* tuning, const std::string& endpointName,
                                const std::string& mono);
    void reportNoData(const xmlNode* tuning, const std::string& name);
    void reportDataElement(const void* tuningEntity, const xmlNode* tuning, const xmlNode* data);
    void reportOutputMode(const xmlNode* outputMode);
    void reportBandFrequencies(const void* tuningEntity, const xmlNode* table,
                               const std::vector<int>& frequencies);
    // Each band of `frequencies` whose frequency an earlier band has, in the
    // table `table` that `what` names.
    void reportDuplicateBands(const xmlNode* table, const std::string& what,
                              const std::vector<int>& frequencies);
    void reportDroppedReference(const xmlNode* element, const std::string& attribute,
                                const std::string& entity);
    bool isExplained(const xmlNode* element) const { return mExplained.count(element) != 0; }
    void reportInclude(const void* profileEntity, const xmlNode* profile, const xmlNode* container,
                       const xmlNode* include, const std::string& presetName, PresetType readAs);

    struct Include {
        long line;
        std::string presetName;
    };

    LoadReport* mReport = nullptr;
    // The readable preset references, by profile.
    std::map<const void*, Include> mIncludes;
    // The types that the ids of presets of an unknown kind name.
    std::set<PresetType> mUnreadPresetTypes;
    // The endpoint sections met so far, by their owner and endpoint.
    std::map<std::pair<const xmlNode*, Endpoint>, const xmlNode*> mEndpointSections;
    // The elements of the section whose values a finding already explains.
    std::set<const xmlNode*> mExplained;
};

}  // namespace ovela

#endif  // OVELA_READER_REPORT_H
