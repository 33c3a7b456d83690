// The lint's checks of tunings: their attributes, device bindings, data
// element, band tables, mix matrices and composite entries.
#include <ovela/Endpoint.h>
#include <ovela/TuningFileVocabulary.h>

#include "LintText.h"
#include "TuningFileLint.h"

namespace ovela::tune {

using namespace lint;

namespace {

// The store sends these lists only together, in one composite entry, and only
// when they hold the same number of values.
struct Composite {
    const char* code;
    std::vector<Parameter> lists;
};

const std::vector<Composite>& composites() {
    static const std::vector<Composite> kComposites = {
        {"ceqt", {COMPLEX_EQUALIZER_TUNING_LEFT, COMPLEX_EQUALIZER_TUNING_RIGHT}},
        {"rssa",
         {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT, REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT}},
        {"aobs", {AUDIO_OPTIMIZER_FREQUENCY, AUDIO_OPTIMIZER_GAIN_L, AUDIO_OPTIMIZER_GAIN_R}},
        {"arbs",
         {REGULATOR_FREQUENCY, REGULATOR_THRESHOLD_LOW, REGULATOR_THRESHOLD_HIGH,
          REGULATOR_ISOLATED_BAND}},
    };
    return kComposites;
}

std::vector<std::string_view> tuningAttributeNames() {
    std::vector<std::string_view> names = namesOf(kTuningAttributes);
    for (std::string_view name : namesOf(kTuningListAttributes)) {
        names.push_back(name);
    }
    return names;
}

std::vector<std::string_view> dataElementNames() {
    std::vector<std::string_view> names;
    for (const auto& table : {namesOf(kTuningValueElements), namesOf(kTuningRowElements),
                              namesOf(kTuningAttributeElements),
                              namesOf(kTuningAttributeListElements), namesOf(kTuningBandElements)}) {
        names.insert(names.end(), table.begin(), table.end());
    }
    names.push_back(kOutputModeElement);
    return names;
}

}  // namespace

void TuningFileLint::checkTuning(xmlNode* tuning) {
    checkAttributes(tuning, tuningAttributeNames());
    const std::string name = attribute(tuning, "name");
    if (!hasAttribute(tuning, "name")) {
        report(tuning, "<tuning> has no name: no endpoint can select it by name");
    }
    if (!hasAttribute(tuning, "endpoint_type")) {
        report(tuning, "tuning " + name + " has no endpoint_type: it reads as speaker");
    } else {
        checkEndpointName(tuning, attribute(tuning, "endpoint_type"),
                          kEndpointNames[ENDPOINT_SPEAKER]);
    }
    if (hasAttribute(tuning, "mono_device")) {
        const std::string mono = attribute(tuning, "mono_device");
        if (mono != kTrueWord && mono != kFalseWord) {
            report(tuning, "mono_device \"" + mono + "\" of tuning " + name +
                               " is not exactly true or false: the tuning is stereo");
        }
    }
    for (xmlAttr* a = tuning->properties; a != nullptr; a = a->next) {
        if (findByName(kTuningListAttributes, nameOf(a)) != nullptr) {
            checkNumber(tuning, nameOf(a), valueOf(a));
        }
    }
    if (auto first = mTuningLines.find(name); first != mTuningLines.end()) {
        report(tuning, "tuning " + name + " is defined again (first at line " +
                           std::to_string(first->second) + "): only the last one is kept");
    }

    checkIndented(tuning);
    xmlNode* data = nullptr;
    for (xmlNode* node = secondChild(tuning); node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE) {
            continue;
        }
        if (data != nullptr) {
            report(node, tag(node) + " after the data element of tuning " + name + " is not read");
        } else if (nameOf(node) == kDeviceIdElement) {
            checkAttributes(node, namesOf(kDeviceIdAttributes));
        } else {
            data = node;
        }
    }
    if (data == nullptr) {
        report(tuning, "tuning " + name + " has no data element: the tuning is dropped");
        return;
    }
    mTuningLines[name] = xmlGetLineNo(tuning);
    checkTuningData(data, name);
}

void TuningFileLint::checkTuningData(xmlNode* data, const std::string& tuningName) {
    checkIndented(data);
    std::map<Parameter, size_t> lengths;
    for (xmlNode* node = secondChild(data); node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE) {
            continue;
        }
        const std::string name = nameOf(node);
        if (findByName(kTuningValueElements, name) != nullptr) {
            checkSetting(node);
        } else if (const TuningRow* row = findByName(kTuningRowElements, name)) {
            size_t length = checkRow(node);
            if (row->storage == RowStorage::KEPT) {
                lengths[row->parameter] = length;
            }
        } else if (const NameTable<Parameter>* attributes =
                       findByName(kTuningAttributeElements, name)) {
            checkAttributes(node, namesOf(*attributes));
            for (xmlAttr* a = node->properties; a != nullptr; a = a->next) {
                checkNumber(node, nameOf(a), valueOf(a));
            }
        } else if (findByName(kTuningAttributeListElements, name) != nullptr) {
            for (xmlAttr* a = node->properties; a != nullptr; a = a->next) {
                checkNumber(node, nameOf(a), valueOf(a));
            }
        } else if (const NameTable<BandColumn>* columns = findByName(kTuningBandElements, name)) {
            checkBands(node, *columns, &lengths);
        } else if (name == kOutputModeElement) {
            checkOutputMode(node);
        } else {
            report(node, "unknown element " + tag(node) + " in tuning " + tuningName +
                             " is ignored" + similarName(name, dataElementNames()));
        }
    }
    checkComposites(data, tuningName, lengths);
}

template <typename Columns>
void TuningFileLint::checkBands(xmlNode* element, const Columns& columns,
                                std::map<Parameter, size_t>* lengths) {
    checkIndented(element);
    for (xmlNode* row = secondChild(element); row != nullptr; row = row->next) {
        if (row->type != XML_ELEMENT_NODE) {
            continue;
        }
        checkAttributes(row, namesOf(columns));
        for (xmlAttr* a = row->properties; a != nullptr; a = a->next) {
            const BandColumn* column = findByName(columns, nameOf(a));
            if (column == nullptr) {
                continue;
            }
            ++(*lengths)[column->parameter];
            const std::string value = valueOf(a);
            if (column->value == BandValue::NUMBER) {
                checkNumber(row, nameOf(a), value);
            } else if (value != kTrueWord && value != kFalseWord) {
                report(row, nameOf(a) + " \"" + value + "\" of " + tag(row) +
                                " is not exactly true or false: it reads as 0");
            }
        }
    }
}

void TuningFileLint::checkOutputMode(xmlNode* outputMode) {
    checkIndented(outputMode);
    std::set<std::string> seen;
    for (xmlNode* node = secondChild(outputMode); node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE) {
            continue;
        }
        const std::string name = nameOf(node);
        if (findByName(kOutputModeMatrices, name) == nullptr) {
            report(node, "unknown element " + tag(node) + " in <output-mode> is ignored" +
                             similarName(name, namesOf(kOutputModeMatrices)));
            continue;
        }
        if (!seen.insert(name).second) {
            report(node, "a second " + tag(node) + " in <output-mode> is not read");
            continue;
        }
        checkIndented(node);
        for (xmlNode* row = secondChild(node); row != nullptr; row = row->next) {
            if (row->type == XML_ELEMENT_NODE) {
                checkRow(row);
            }
        }
    }
}

void TuningFileLint::checkComposites(xmlNode* data, const std::string& tuningName,
                                     const std::map<Parameter, size_t>& lengths) {
    for (const Composite& composite : composites()) {
        std::string described;
        bool given = false;
        bool equal = true;
        size_t firstLength = 0;
        for (size_t i = 0; i < composite.lists.size(); ++i) {
            auto found = lengths.find(composite.lists[i]);
            size_t length = found == lengths.end() ? 0 : found->second;
            given = given || length != 0;
            if (i == 0) {
                firstLength = length;
            }
            equal = equal && length == firstLength;
            described += std::string(i == 0 ? "" : ", ") + kParameterNames[composite.lists[i]] +
                         " " + std::to_string(length);
        }
        if (given && (!equal || firstLength == 0)) {
            report(data, "tuning " + tuningName + " gives lists of unequal length (" + described +
                             "): its \"" + composite.code + "\" entry is dropped");
        }
    }
}

}  // namespace ovela::tune
