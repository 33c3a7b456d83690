#include "TuningFileLint.h"

#include <ovela/Endpoint.h>
#include <ovela/TextReaders.h>
#include <ovela/TuningFileVocabulary.h>

#include <algorithm>

#include "LintText.h"

namespace ovela::tune {

using namespace lint;

std::vector<Finding> TuningFileLint::run(xmlNode* root) {
    for (xmlNode* node = root->children; node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE) {
            continue;
        }
        const Section* section = findByName(kSectionElements, nameOf(node));
        if (section == nullptr) {
            report(node, "unknown element " + tag(node) + " in the root is ignored" +
                             similarName(nameOf(node), namesOf(kSectionElements)));
            continue;
        }
        switch (*section) {
            case Section::FORMAT_VERSION:
            case Section::TOOL_VERSION:
                checkVersion(node);
                break;
            case Section::GENERAL:
                checkGeneral(node);
                break;
            case Section::PRESET:
                checkPreset(node);
                break;
            case Section::PROFILE:
                checkProfile(node);
                break;
            case Section::TUNING:
                checkTuning(node);
                break;
        }
    }
    std::stable_sort(mFindings.begin(), mFindings.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    return mFindings;
}

void TuningFileLint::report(const xmlNode* node, const std::string& message) {
    mFindings.push_back({node == nullptr ? 0 : xmlGetLineNo(node), message});
}

void TuningFileLint::checkIndented(xmlNode* parent) {
    xmlNode* first = parent->children;
    if (first != nullptr && first->type == XML_ELEMENT_NODE) {
        report(first, tag(first) + " comes first in " + tag(parent) +
                          " with no text before it, and the reader skips the first child: "
                          "indent the file");
    }
}

void TuningFileLint::checkAttributes(xmlNode* element, const std::vector<std::string_view>& known) {
    for (xmlAttr* a = element->properties; a != nullptr; a = a->next) {
        std::string name = nameOf(a);
        if (std::find(known.begin(), known.end(), name) == known.end()) {
            report(element, "unknown attribute \"" + name + "\" of " + tag(element) +
                                " is ignored" + similarName(name, known));
        }
    }
}

void TuningFileLint::checkNumber(const xmlNode* element, const std::string& what,
                                 const std::string& text) {
    if (isWholeNumber(text)) {
        return;
    }
    // Entity references are read as written (see LintText's valueOf).
    report(element, what + " \"" + text + "\" of " + tag(element) +
                        (text.find('&') != std::string::npos
                             ? " is built from entity references, which check does not expand"
                             : " is not a number: it reads as " + std::to_string(string2int(text))));
}

void TuningFileLint::checkSetting(xmlNode* element) {
    checkAttributes(element, {kValueAttribute});
    xmlAttr* first = element->properties;
    if (first == nullptr || nameOf(first) != kValueAttribute) {
        report(element,
               tag(element) + (hasAttribute(element, kValueAttribute)
                                   ? " has \"value\" after another attribute, and the reader "
                                     "reads only the first: it reads as 0"
                                   : " has no \"value\": it reads as 0"));
        return;
    }
    std::string value = valueOf(first);
    if (findByName(kTruthWords, value) == nullptr) {
        checkNumber(element, "value", value);
    }
}

size_t TuningFileLint::checkRow(xmlNode* element) {
    xmlAttr* first = element->properties;
    if (first == nullptr) {
        report(element, tag(element) + " has no attribute: its row is empty");
        return 0;
    }
    std::vector<std::string> fields = rowFields(valueOf(first));
    for (const std::string& field : fields) {
        if (!isWholeNumber(field)) {
            report(element, "field \"" + field + "\" of " + tag(element) +
                                " is not a number: it repeats the field before it");
        }
    }
    return fields.size();
}

void TuningFileLint::checkEndpointName(xmlNode* element, const std::string& name,
                                       const char* fallback) {
    std::vector<std::string_view> known(kEndpointNames, kEndpointNames + kNumEndpoints);
    if (std::find(known.begin(), known.end(), name) == known.end()) {
        report(element, "endpoint \"" + name + "\" of " + tag(element) +
                            " is not an endpoint name: it reads as " + fallback +
                            similarName(name, known));
    }
}

std::string TuningFileLint::checkEndpointId(xmlNode* element, const char* fallback) {
    checkAttributes(element, {kEndpointIdAttribute});
    xmlAttr* first = element->properties;
    if (first == nullptr || nameOf(first) != kEndpointIdAttribute) {
        report(element, tag(element) +
                            (hasAttribute(element, kEndpointIdAttribute)
                                 ? " has \"id\" after another attribute, and the reader "
                                   "reads only the first: it reads as "
                                 : " names no endpoint: it reads as ") +
                            fallback);
        return fallback;
    }
    std::string name = valueOf(first);
    checkEndpointName(element, name, fallback);
    return name;
}

void TuningFileLint::checkVersion(xmlNode* element) {
    checkAttributes(element, namesOf(kVersionAttributes));
}

void TuningFileLint::checkGeneral(xmlNode* general) {
    if (mGeneralLine != 0) {
        report(general,
               "a second <general> replaces the one at line " + std::to_string(mGeneralLine));
    }
    mGeneralLine = xmlGetLineNo(general);
    checkAttributes(general, {});
    checkIndented(general);
    xmlNode* wrapper = secondChild(general);
    if (wrapper == nullptr || wrapper->type != XML_ELEMENT_NODE) {
        report(general, "<general> has no wrapper element: none of its settings are read");
        return;
    }
    for (xmlNode* node = wrapper->next; node != nullptr; node = node->next) {
        if (node->type == XML_ELEMENT_NODE) {
            report(node, tag(node) + " after the wrapper of <general> is not read");
        }
    }
    checkIndented(wrapper);
    std::set<std::string> endpoints;
    std::vector<std::string_view> known = namesOf(kGeneralElements);
    known.push_back(kEndpointTypeElement);
    for (xmlNode* node = secondChild(wrapper); node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE) {
            continue;
        }
        if (nameOf(node) == kEndpointTypeElement) {
            checkEndpointSection(
                node, "<general>", &endpoints, namesOf(kGeneralEndpointElements),
                [this](xmlNode* element) {
                    if (findByName(kGeneralEndpointElements, nameOf(element)) == nullptr) {
                        return false;
                    }
                    checkSetting(element);
                    return true;
                });
        } else if (findByName(kGeneralElements, nameOf(node)) != nullptr) {
            checkSetting(node);
        } else {
            report(node, "unknown element " + tag(node) + " in <general> is ignored" +
                             similarName(nameOf(node), known));
        }
    }
}

void TuningFileLint::checkEndpointSection(xmlNode* endpointType, const std::string& owner,
                                          std::set<std::string>* seen,
                                          const std::vector<std::string_view>& knownElements,
                                          const std::function<bool(xmlNode*)>& checkElement) {
    std::string endpoint = checkEndpointId(endpointType, kEndpointNames[ENDPOINT_OTHER]);
    if (!seen->insert(endpoint).second) {
        report(endpointType,
               "a second <endpoint_type> for " + endpoint + " in " + owner + ": both are sent");
    }
    checkIndented(endpointType);
    for (xmlNode* node = secondChild(endpointType); node != nullptr; node = node->next) {
        if (node->type == XML_ELEMENT_NODE && !checkElement(node)) {
            report(node, "unknown element " + tag(node) + " in an <endpoint_type> of " + owner +
                             " is ignored" + similarName(nameOf(node), knownElements));
        }
    }
}

}  // namespace ovela::tune
