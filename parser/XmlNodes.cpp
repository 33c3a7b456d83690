#define LOG_TAG "TuningFileParser"

#include "XmlNodes.h"

#include <libxml/entities.h>

#include "ReaderLog.h"
#include "ReaderReport.h"

namespace ovela::xml {

namespace {

thread_local ReaderReport* tExpansionReport = nullptr;

// Appends the text of `nodes` to `value` as xmlNodeListGetString(doc, nodes, 1)
// puts it together: text and CDATA as they stand, an entity reference as the
// text of its entity's nodes (or as its own content when the document declares
// no such entity), nothing for other nodes. False as soon as the value would
// pass kMaxExpandedValueBytes or `references` would pass kMaxExpandedReferences.
bool appendText(const xmlDoc* document, const xmlNode* nodes, std::string& value, int& references) {
    for (const xmlNode* node = nodes; node != nullptr; node = node->next) {
        const xmlChar* text = nullptr;
        if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) {
            text = node->content;
        } else if (node->type == XML_ENTITY_REF_NODE) {
            if (++references > kMaxExpandedReferences) {
                return false;
            }
            if (const xmlEntity* entity = xmlGetDocEntity(document, node->name)) {
                if (!appendText(document, entity->children, value, references)) {
                    return false;
                }
                continue;
            }
            text = node->content;
        }
        if (text != nullptr) {
            const size_t length = xmlStrlen(text);
            if (length > kMaxExpandedValueBytes - value.size()) {
                return false;
            }
            value.append(reinterpret_cast<const char*>(text), length);
        }
    }
    return true;
}

}  // namespace

size_t elementsIn(const xmlNode* element) {
    size_t count = 1;
    for (const xmlNode* child = element->children; child != nullptr; child = child->next) {
        if (isElement(child)) {
            count += elementsIn(child);
        }
    }
    return count;
}

size_t elementsFrom(const xmlNode* node) {
    size_t count = 0;
    for (; node != nullptr; node = node->next) {
        if (isElement(node)) {
            count += elementsIn(node);
        }
    }
    return count;
}

const xmlNode* firstElementFrom(const xmlNode* node) {
    while (node != nullptr && !isElement(node)) {
        node = node->next;
    }
    return node;
}

bool hasElementChild(const xmlNode* node) {
    return node != nullptr && isElement(node) && firstElementFrom(node->children) != nullptr;
}

void setExpansionReport(ReaderReport* report) {
    tExpansionReport = report;
}

std::string expandedValueOf(const xmlAttr* attribute) {
    std::string value;
    int references = 0;
    if (!appendText(attribute->doc, attribute->children, value, references)) {
        READER_LOGE("%s() %s of <%s> passes %zu bytes or %d entity references: read as empty",
                    __func__, reinterpret_cast<const char*>(attribute->name),
                    reinterpret_cast<const char*>(attribute->parent->name), kMaxExpandedValueBytes,
                    kMaxExpandedReferences);
        if (tExpansionReport != nullptr) {
            tExpansionReport->add(
                Rule::ENTITY_EXPANSION, attribute->parent, nameOf(attribute),
                {{"attribute", toString(attribute->name)},
                 {"element", "<" + toString(attribute->parent->name) + ">"},
                 {"problem", "expands its entity references past " +
                                 std::to_string(kMaxExpandedValueBytes) + " bytes or " +
                                 std::to_string(kMaxExpandedReferences) + " references"},
                 {"readAs", "empty"}});
        }
        return std::string();
    }
    return value;
}

}  // namespace ovela::xml
