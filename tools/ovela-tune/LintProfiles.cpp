// The lint's checks of presets, profiles and profile endpoints.
#include <ovela/Endpoint.h>
#include <ovela/TextReaders.h>
#include <ovela/TuningFileVocabulary.h>

#include <cstdlib>

#include "LintText.h"
#include "TuningFileLint.h"

namespace ovela::tune {

using namespace lint;

namespace {

constexpr int kFirstProfileId = 0;
constexpr int kLastProfileId = 9;

template <typename Words>
bool containsAnyWord(const std::string& text, const Words& words) {
    for (const auto& word : words) {
        if (text.find(word.first) != std::string::npos) {
            return true;
        }
    }
    return false;
}

std::string lowerCase(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

// " (letter case differs)" when `text` would name a word in lower case.
template <typename Words>
std::string caseHint(const std::string& text, const Words& words) {
    return containsAnyWord(lowerCase(text), words) ? " (the reader is case-sensitive)" : "";
}

}  // namespace

void TuningFileLint::checkPreset(xmlNode* preset) {
    checkAttributes(preset, namesOf(kPresetAttributes));
    const std::string type = attribute(preset, "type");
    const std::string id = attribute(preset, "id");
    const PresetLayout* layout = findByName(kPresetTypes, type);
    if (layout == nullptr) {
        report(preset, "preset type \"" + type +
                           "\" is not one the reader knows: the preset is "
                           "ignored" +
                           similarName(type, namesOf(kPresetTypes)));
        return;
    }
    const std::string described = "preset type=" + type + " id=" + id;
    if (layout->kind == PresetKind::IEQ && !containsAnyWord(id, kIeqPresetIdWords)) {
        report(preset, "IEQ preset id \"" + id + "\" names no preset type: it reads as balanced" +
                           caseHint(id, kIeqPresetIdWords));
    }
    if (layout->kind == PresetKind::GEQ && !isWholeNumber(id)) {
        report(preset, "GEQ preset id \"" + id + "\" is not a number: it reads as " +
                           std::to_string(std::atoi(id.c_str())));
    }

    // Band rows sit two wrapper levels down.
    xmlNode* level = preset;
    for (int depth = 0; depth < 2 && level != nullptr; ++depth) {
        checkIndented(level);
        level = secondChild(level);
        if (level != nullptr && level->type != XML_ELEMENT_NODE) {
            level = nullptr;
        }
    }
    std::map<Parameter, size_t> counts;
    if (level != nullptr) {
        checkIndented(level);
        for (xmlNode* row = secondChild(level); row != nullptr; row = row->next) {
            if (row->type != XML_ELEMENT_NODE) {
                continue;
            }
            if (layout->rowElement != nullptr && nameOf(row) != layout->rowElement) {
                report(row, tag(row) + " ends the band rows of the " + described +
                                ": no row after it is read");
                break;
            }
            checkAttributes(row, namesOf(layout->rowAttributes));
            for (xmlAttr* a = row->properties; a != nullptr; a = a->next) {
                const Parameter* parameter = findByName(layout->rowAttributes, nameOf(a));
                if (parameter == nullptr) {
                    continue;
                }
                // A value may carry several comma-separated numbers.
                std::string value = valueOf(a);
                size_t pieces = 1;
                size_t start = 0;
                for (size_t comma = value.find(',');; comma = value.find(',', start)) {
                    std::string piece = value.substr(
                        start, comma == std::string::npos ? std::string::npos : comma - start);
                    checkNumber(row, nameOf(a), piece);
                    if (comma == std::string::npos) {
                        break;
                    }
                    start = comma + 1;
                    ++pieces;
                }
                counts[*parameter] += pieces;
            }
        }
    }
    const Parameter frequencies = layout->rowAttributes.entries[0].second;
    const Parameter levels = layout->rowAttributes.entries[1].second;
    for (const auto& [name, parameter] : layout->rowAttributes) {
        if (counts[parameter] == 0) {
            report(preset, "the " + described + " has no \"" + name +
                               "\" values: the whole file fails to load");
        }
    }
    if (counts[frequencies] != 0 && counts[levels] != 0 && counts[frequencies] != counts[levels]) {
        report(preset,
               "the " + described + " has " + std::to_string(counts[frequencies]) +
                   " frequencies and " + std::to_string(counts[levels]) + " " +
                   layout->rowAttributes.entries[1].first + " values" +
                   (layout->kind == PresetKind::IEQ ? ": its \"iebs\" entry is dropped" : ""));
    }
}

void TuningFileLint::checkProfile(xmlNode* profile) {
    checkAttributes(profile, namesOf(kProfileAttributes));
    const std::string idText = attribute(profile, "id");
    if (!hasAttribute(profile, "id")) {
        report(profile, "<profile> has no id: it reads as 0");
    } else if (!isWholeNumber(idText)) {
        report(profile, "profile id \"" + idText + "\" is not a number: it reads as " +
                            std::to_string(std::atoi(idText.c_str())));
    }
    const int id = std::atoi(idText.c_str());
    if (id < kFirstProfileId || id > kLastProfileId) {
        report(profile, "profile id " + std::to_string(id) +
                            " is outside 0 to 9: the store skips the profile");
    }
    auto [first, inserted] = mProfileLines.emplace(id, xmlGetLineNo(profile));
    if (!inserted) {
        report(profile, "profile id " + std::to_string(id) + " is defined again (first at line " +
                            std::to_string(first->second) + "): both are sent in the same array");
    }

    checkIndented(profile);
    xmlNode* container = secondChild(profile);
    if (container == nullptr || container->type != XML_ELEMENT_NODE) {
        report(profile, "profile " + std::to_string(id) +
                            " has no parameter container as its second child node: none of "
                            "its settings are read");
        container = nullptr;
    }
    xmlNode* include =
        container == nullptr || container->next == nullptr ? nullptr : container->next->next;
    for (xmlNode* node = profile->children; node != nullptr; node = node->next) {
        // The first child is reported by checkIndented().
        if (node->type == XML_ELEMENT_NODE && node != profile->children && node != container &&
            node != include) {
            report(node, tag(node) + " in profile " + std::to_string(id) +
                             " is not read: a profile holds its container, then <include>");
        }
    }
    if (include == nullptr || nameOf(include) != kIncludeElement) {
        if (include != nullptr) {
            report(include, tag(include) + " in profile " + std::to_string(id) + " is not read");
        }
        report(profile, "profile " + std::to_string(id) +
                            " has no <include> as its fourth child node: no preset is "
                            "selected (it reads as off)");
    } else {
        checkAttributes(include, {kIncludePresetAttribute});
        xmlAttr* presetAttribute = include->properties;
        if (presetAttribute == nullptr || nameOf(presetAttribute) != kIncludePresetAttribute) {
            report(include,
                   "<include> has no \"preset\" as its first attribute: no preset is "
                   "selected (it reads as off)");
        } else if (std::string name = valueOf(presetAttribute);
                   !containsAnyWord(name, kIncludePresetWords)) {
            report(include, "preset \"" + name + "\" names no IEQ preset type: it reads as off" +
                                caseHint(name, kIncludePresetWords));
        }
    }
    if (container == nullptr) {
        return;
    }

    checkIndented(container);
    std::set<std::string> endpoints;
    std::vector<std::string_view> known = namesOf(kProfileElements);
    known.push_back(kEndpointTypeElement);
    for (xmlNode* node = secondChild(container); node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE) {
            continue;
        }
        if (nameOf(node) == kEndpointTypeElement) {
            checkEndpointSection(node, "profile " + std::to_string(id), &endpoints,
                                 namesOf(kProfileEndpointElements), [this](xmlNode* element) {
                                     return checkValueElement(element, kProfileEndpointElements);
                                 });
        } else if (!checkValueElement(node, kProfileElements)) {
            report(node, "unknown element " + tag(node) + " in profile " + std::to_string(id) +
                             " is ignored" + similarName(nameOf(node), known));
        }
    }
}

bool TuningFileLint::checkValueElement(xmlNode* element, const NameTable<ElementValue>& elements) {
    const ElementValue* value = findByName(elements, nameOf(element));
    if (value == nullptr) {
        return false;
    }
    if (value->shape == ValueShape::SINGLE) {
        checkSetting(element);
    } else {
        checkRow(element);
    }
    return true;
}

}  // namespace ovela::tune
