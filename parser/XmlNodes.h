#ifndef OVELA_XML_NODES_H
#define OVELA_XML_NODES_H

// Node walking shared by the section readers of TuningFileParser; not part of
// the library's interface. Every positional step tolerates a missing node, so
// a file of any shape is walked without reading past what libxml2 built.

#include <libxml/tree.h>
#include <libxml/xmlstring.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace ovela {
class ReaderReport;
}

namespace ovela::xml {

// A parsed document, freed with its owner.
struct FreeDocument {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using Document = std::unique_ptr<xmlDoc, FreeDocument>;

inline std::string toString(const xmlChar* text) {
    if (text == nullptr) {
        return std::string();
    }
    return std::string(reinterpret_cast<const char*>(text), xmlStrlen(text));
}

// The most text that one attribute value may be put together from by its
// entity references, and the most references it may expand, nested ones
// included (which also bounds how deep the expansion goes). Tuning files
// use no entities; the bounds only keep a hostile file from making a few
// bytes of references cost without end.
inline constexpr size_t kMaxExpandedValueBytes = 1 << 20;
inline constexpr int kMaxExpandedReferences = 1024;

// The value of an attribute whose text holds entity references, put together
// as xmlGetProp does; a value past either bound is logged and read as empty.
std::string expandedValueOf(const xmlAttr* attribute);

// The report that a value cut short on this thread goes to, if any: the
// reader sets it for the length of a load.
void setExpansionReport(ReaderReport* report);

// The value of `attribute` as xmlGetProp(element, name) gives it, read from
// the tree in place: a view of the tree's own text when the attribute holds
// one piece of text, else of `storage`, which it fills. Either ends before a
// NUL. xmlGetProp finds an attribute by its local name alone, so of two that
// differ only in their namespace both read as the first.
inline std::string_view textOf(const xmlAttr* attribute, std::string& storage) {
    const xmlAttr* namesake = attribute->parent->properties;
    while (namesake != attribute && !xmlStrEqual(namesake->name, attribute->name)) {
        namesake = namesake->next;
    }
    const xmlNode* text = namesake->children;
    if (text != nullptr && text->next == nullptr && text->type == XML_TEXT_NODE) {
        return text->content == nullptr ? std::string_view()
                                        : reinterpret_cast<const char*>(text->content);
    }
    storage = expandedValueOf(namesake);
    return storage;
}

// The same value as a string of its own.
inline std::string valueOf(const xmlAttr* attribute) {
    std::string storage;
    return std::string(textOf(attribute, storage));
}

inline std::string_view nameOf(const xmlNode* node) {
    if (node->name == nullptr) {
        return std::string_view();
    }
    return reinterpret_cast<const char*>(node->name);
}

inline std::string_view nameOf(const xmlAttr* attribute) {
    return reinterpret_cast<const char*>(attribute->name);
}

inline bool isElement(const xmlNode* node) {
    return node->type == XML_ELEMENT_NODE;
}

inline bool isElementNamed(const xmlNode* node, std::string_view name) {
    return node != nullptr && isElement(node) && nameOf(node) == name;
}

// Indented files put a whitespace text node before each list of children, so
// the readers start at the second child node. Null when there is none; only
// elements are descended into (an entity reference's "children" is its
// declaration, not content).
inline xmlNode* secondChild(const xmlNode* node) {
    if (node == nullptr || !isElement(node) || node->children == nullptr) {
        return nullptr;
    }
    return node->children->next;
}

inline xmlNode* fourthChild(const xmlNode* node) {
    xmlNode* second = secondChild(node);
    if (second == nullptr || second->next == nullptr) {
        return nullptr;
    }
    return second->next->next;
}

// The element and every element inside it.
size_t elementsIn(const xmlNode* element);

// The elements from `node` along its siblings, with every element inside them.
size_t elementsFrom(const xmlNode* node);

// The first element from `node` along its siblings, or null.
const xmlNode* firstElementFrom(const xmlNode* node);

bool hasElementChild(const xmlNode* node);

// The attributes of an element; other kinds of node have none to offer.
inline xmlAttr* firstAttribute(const xmlNode* node) {
    return node != nullptr && isElement(node) ? node->properties : nullptr;
}

// The value of the element's first attribute when that attribute has exactly
// `name`, else the empty text: several settings look at nothing further.
inline std::string firstAttributeValue(const xmlNode* element, std::string_view name) {
    const xmlAttr* first = firstAttribute(element);
    if (first == nullptr || nameOf(first) != name) {
        return std::string();
    }
    return valueOf(first);
}

}  // namespace ovela::xml

#endif  // OVELA_XML_NODES_H
