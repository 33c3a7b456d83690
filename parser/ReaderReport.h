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
#include "FindingText.h"
#include "LoadReport.h"
#include "Parameter.h"
#include "PresetType.h"
#include "SourcePositions.h"

// What the tuning file reader records of its decisions, in the reader's own
// terms; not part of the library's interface. The section readers call it
// where they decide, with what they decided: it fills the rules' messages and
// the trace, and walks no nodes to find out anything. Every operation does
// nothing unless a report is attached, and then only costs the test of one
// pointer.
namespace ovela {

class ParameterValues;
struct PresetLayout;
struct RowProblems;

// How the reader found the band rows of a preset.
struct BandRows {
    const xmlNode* wrapper = nullptr;  // the 2nd child node of the preset
    const xmlNode* bands = nullptr;    // the 2nd child node of that
    const xmlNode* first = nullptr;    // the first row read
    const xmlNode* stop = nullptr;     // the element that ended the rows
};

class ReaderReport {
  public:
    void attach(LoadReport* report, const SourcePositions* positions) {
        mReport = report;
        mPositions = positions;
        mIncludes.clear();
        mPresets.clear();
        mUnreadPresetTypes.clear();
        mEndpointSections.clear();
        mExplained.clear();
    }
    LoadReport* get() const { return mReport; }
    explicit operator bool() const { return mReport != nullptr; }

    Place placeOf(const xmlNode* node) const;
    Place placeOf(const xmlNode* element, std::string_view attribute) const;

    // A finding about `node`, or about the whole file when it is null.
    void add(Rule rule, const xmlNode* node, Slots slots) {
        if (mReport != nullptr) mReport->add(rule, placeOf(node), slots);
    }
    // A finding about the attribute `attribute` of `element`.
    void add(Rule rule, const xmlNode* element, std::string_view attribute, Slots slots) {
        if (mReport != nullptr) mReport->add(rule, placeOf(element, attribute), slots);
    }

    // ---- How the reader walks
    // The reader starts at the second child node of `parent`, whose first
    // is an element: it and those inside it, `lost` in all, are not read.
    void descend(const xmlNode* parent, size_t lost) {
        if (mReport != nullptr) reportDescend(parent, lost);
    }
    // The reader takes `taken`, the child node at `position` (2 or 4) of
    // `parent`, as the element that the format names `name`, though it is no
    // element, or one of another name. `loss` says what the file loses.
    void positional(const xmlNode* parent, int position, const xmlNode* taken, const char* name,
                    const std::string& loss) {
        if (mReport != nullptr) reportPositional(parent, position, taken, name, loss);
    }
    // Elements that the reader does not read, from `first`: `count` of them,
    // those inside included; `why` follows "are not read: ".
    void notRead(const xmlNode* first, size_t count, const std::string& why) {
        if (mReport != nullptr) reportNotRead(first, count, why);
    }
    // An element that the reader reads whatever its name, which the format
    // names `name`, in `parent`.
    void named(const xmlNode* element, const char* name) {
        if (mReport != nullptr) reportNamed(element, name);
    }
    // A node among the children that the reader reads, which is no element:
    // an entity reference that stands for elements brings in elements that
    // the reader does not read.
    void nonElement(const xmlNode* node) {
        if (mReport != nullptr && node->type == XML_ENTITY_REF_NODE) reportEntityContent(node);
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

    // ---- Values
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
    // The text of a preset's band row attribute, which gave `read` values,
    // the last of them `last`.
    void bandValue(const xmlNode* row, std::string_view attribute, std::string_view text, int last,
                   size_t read) {
        if (mReport != nullptr) reportBandValue(row, attribute, text, last, read);
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
    // libxml2 left the reference to `entity`, which the file does not
    // declare, out of the value of `attribute` of `element`. What the
    // element's values read as follows from that and is not reported again.
    void droppedReference(const xmlNode* element, const std::string& attribute,
                          const std::string& entity) {
        if (mReport != nullptr) reportDroppedReference(element, attribute, entity);
    }

    // ---- The trace
    // What an entity was read from; `label()` names it, asked only when a
    // report is attached.
    template <typename Label>
    void entity(const void* entity, const xmlNode* element, Label label, const char* kind) {
        if (mReport != nullptr)
            mReport->trace().recordEntity(entity, placeOf(element), label(), kind);
    }
    // `entity` took values for `parameter` from `node`: the element `name`,
    // or its attribute `attribute`. A second value for the same parameter
    // replaces the first.
    void value(const void* entity, Parameter parameter, const xmlNode* node, std::string_view name,
               std::string_view attribute = std::string_view()) {
        if (mReport != nullptr) reportValue(entity, parameter, node, name, attribute);
    }
    // One value of a list of `parameter` that rows give value by value, from
    // the attribute `attribute` of the row `row` of the element `name`.
    void gathered(const void* entity, Parameter parameter, const xmlNode* row,
                  std::string_view name, std::string_view attribute);
    // An entity that the reader dropped: what it recorded of it no longer counts.
    void forget(const void* entity) {
        if (mReport != nullptr) mReport->trace().forget(entity);
    }

    // ---- Sections
    // A child element of the root starts: what is told about one section
    // ends here.
    void beginSection() {
        if (mReport != nullptr) {
            mEndpointSections.clear();
            mExplained.clear();
        }
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
    // A second band table `table` of the tuning `tuningEntity`, whose rows
    // the reader adds to those of `first`, of the same name; `bands` is the
    // number of bands of them all so far.
    void bandTable(const void* tuningEntity, const xmlNode* table, const xmlNode* first,
                   size_t bands) {
        if (mReport != nullptr) reportBandTable(tuningEntity, table, first, bands);
    }
    // A second matrix of one name in an "output-mode", which the reader does
    // not read.
    void secondMatrix(const xmlNode* outputMode, const xmlNode* matrix, const xmlNode* first) {
        if (mReport != nullptr) reportSecondMatrix(outputMode, matrix, first);
    }
    // The numbers in each row of a matrix.
    void matrixRows(const xmlNode* matrix, const std::vector<size_t>& lengths) {
        if (mReport != nullptr) reportMatrixRows(matrix, lengths);
    }

    // ---- Profiles
    // The preset reference of a profile: `include`, the 4th child node of
    // `profile`, which the reader takes as its <include>, named `presetName`
    // and read as `readAs`. When it is none, `misplaced` is an <include> of
    // the profile that the reader leaves alone, or null.
    void include(const void* profileEntity, const xmlNode* profile, const xmlNode* include,
                 const xmlNode* misplaced, const std::string& presetName, PresetType readAs) {
        if (mReport != nullptr) {
            reportInclude(profileEntity, profile, include, misplaced, presetName, readAs);
        }
    }
    // Once the file is read: the profiles' selections, which meet the IEQ
    // presets that the reader read.
    void presetLinks(const std::map<const void*, PresetType>& selections);

    // ---- Presets
    // A "preset" element whose type is neither of the known ones, whose id
    // names the IEQ preset type `named`, or null.
    void presetType(const xmlNode* preset, const std::string& type, bool given,
                    const PresetType* named) {
        if (mReport != nullptr) reportPresetType(preset, type, given, named);
    }
    // An IEQ preset that the reader read, its id read as `type`.
    void ieqPreset(const xmlNode* preset, const void* entity, const std::string& id,
                   PresetType type) {
        if (mReport != nullptr) reportIeqPreset(preset, entity, id, type);
    }
    // An IEQ preset whose id holds no preset word: it reads as `readAs`.
    void ieqPresetId(const xmlNode* preset, const std::string& id, PresetType readAs) {
        if (mReport != nullptr) reportIeqPresetId(preset, id, readAs);
    }
    // The load fails: the preset, of `layout`, gives no values for
    // `attribute`, its rows as the reader found them.
    void presetWithoutBands(const xmlNode* preset, const std::string& id, const PresetLayout& layout,
                            const char* attribute, const BandRows& rows) {
        if (mReport != nullptr) reportPresetWithoutBands(preset, id, layout, attribute, rows);
    }
    // Bands of one list of `entity` that share a frequency: `frequencies` as
    // the rows of `table` and of the tables after it gave them.
    void duplicateBands(const xmlNode* table, const void* entity,
                        const std::vector<int>& frequencies) {
        if (mReport != nullptr) reportDuplicateBands(table, entity, frequencies);
    }
    // IEQ presets of one type, more than one.
    void duplicatePresets(const std::vector<const void*>& presets, PresetType type);

    // ---- Tunings
    // The attributes of a "tuning" element.
    void tuningAttributes(const xmlNode* tuning, const std::string& endpointName,
                          const std::string& mono) {
        if (mReport != nullptr) reportTuningAttributes(tuning, endpointName, mono);
    }
    // A tuning that the reader drops for want of a data element.
    void noData(const xmlNode* tuning, const std::string& name) {
        if (mReport != nullptr) reportNoData(tuning, name);
    }
    // `data`, the element that the reader takes as the data of `tuningEntity`,
    // with `after` elements behind it that it does not read, from `firstAfter`.
    void dataElement(const void* tuningEntity, const xmlNode* tuning, const xmlNode* data,
                     const xmlNode* firstAfter, size_t after) {
        if (mReport != nullptr) reportDataElement(tuningEntity, tuning, data, firstAfter, after);
    }

    LoadReport::Mark mark() const {
        return mReport != nullptr ? mReport->mark() : LoadReport::Mark{0, 0};
    }
    void discardSince(const LoadReport::Mark& mark) {
        if (mReport != nullptr) mReport->discardSince(mark);
    }

  private:
    void reportDescend(const xmlNode* parent, size_t lost);
    void reportPositional(const xmlNode* parent, int position, const xmlNode* taken,
                          const char* name, const std::string& loss);
    void reportNotRead(const xmlNode* first, size_t count, const std::string& why);
    void reportNamed(const xmlNode* element, const char* name);
    void reportEntityContent(const xmlNode* reference);
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
    void reportBandValue(const xmlNode* row, std::string_view attribute, std::string_view text,
                         int last, size_t read);
    void reportEndpointType(const xmlNode* element, Endpoint readAs);
    void reportEndpointName(const xmlNode* element, std::string_view attribute,
                            const std::string& text, Endpoint readAs);
    void reportDroppedReference(const xmlNode* element, const std::string& attribute,
                                const std::string& entity);
    void reportValue(const void* entity, Parameter parameter, const xmlNode* node,
                     std::string_view name, std::string_view attribute);
    void reportReplaced(const void* earlier, const xmlNode* node, const char* what);
    void reportEndpointSection(const xmlNode* owner, const xmlNode* section, Endpoint endpoint);
    void reportBandTable(const void* tuningEntity, const xmlNode* table, const xmlNode* first,
                         size_t bands);
    void reportSecondMatrix(const xmlNode* outputMode, const xmlNode* matrix, const xmlNode* first);
    void reportMatrixRows(const xmlNode* matrix, const std::vector<size_t>& lengths);
    void reportInclude(const void* profileEntity, const xmlNode* profile, const xmlNode* include,
                       const xmlNode* misplaced, const std::string& presetName, PresetType readAs);
    void reportPresetType(const xmlNode* preset, const std::string& type, bool given,
                          const PresetType* named);
    void reportIeqPreset(const xmlNode* preset, const void* entity, const std::string& id,
                         PresetType type);
    void reportIeqPresetId(const xmlNode* preset, const std::string& id, PresetType readAs);
    void reportPresetWithoutBands(const xmlNode* preset, const std::string& id,
                                  const PresetLayout& layout, const char* attribute,
                                  const BandRows& rows);
    // Why the reader finds no element at `taken`, the child node at
    // `position` of `parent` where it takes the element `name`.
    std::string positionText(const xmlNode* parent, int position, const xmlNode* taken,
                             const char* name) const;
    void reportDuplicateBands(const xmlNode* table, const void* entity,
                              const std::vector<int>& frequencies);
    void reportTuningAttributes(const xmlNode* tuning, const std::string& endpointName,
                                const std::string& mono);
    void reportNoData(const xmlNode* tuning, const std::string& name);
    void reportDataElement(const void* tuningEntity, const xmlNode* tuning, const xmlNode* data,
                           const xmlNode* firstAfter, size_t after);
    bool isExplained(const xmlNode* element) const { return mExplained.count(element) != 0; }

    struct Include {
        Place place;
        std::string presetName;
    };
    struct PresetName {
        const void* entity;
        std::string id;
        PresetType type;
        Place place;  // of its id
    };

    LoadReport* mReport = nullptr;
    const SourcePositions* mPositions = nullptr;
    // The readable preset references, by profile.
    std::map<const void*, Include> mIncludes;
    // The IEQ presets read, and the types that the ids of presets of an
    // unknown kind name (a finding says already that they are not read).
    std::vector<PresetName> mPresets;
    std::set<PresetType> mUnreadPresetTypes;
    // The endpoint sections met so far, by their owner and endpoint.
    std::map<std::pair<const xmlNode*, Endpoint>, const xmlNode*> mEndpointSections;
    // The elements of the section whose values a finding already explains.
    std::set<const xmlNode*> mExplained;
};

}  // namespace ovela

#endif  // OVELA_READER_REPORT_H
