#ifndef OVELA_XML_NODES_H
#define OVELA_XML_NODES_H

// Node walking shared by the section readers of TuningFileParser; not part of
// the library's interface. Every positional step tolerates a missing node, so
// a file of any shape is walked without reading past what libxml2 built.

#include <libxml/tree.h>
#include <libxml/xmlmemory.h>

#include <memory>
#include <string>
#include <string_view>

namespace ovela::xml {

struct XmlStringFree {
    void operator()(xmlChar* text) const { xmlFree(text); }
};

// A string that libxml2 allocated, freed on every path out of the caller.
using XmlString = std::unique_ptr<xmlChar, XmlStringFree>;

inline XmlString getProp(const xmlNode* element, const xmlChar* name) {
    return XmlString(xmlGetProp(element, name));
}

inline std::string toString(const xmlChar* text) {
    if (text == nullptr) {
        return std::string();
    }
    return std::string(reinterpret_cast<const char*>(text), xmlStrlen(text));
}

// The value of `attribute` as its element gives it through xmlGetProp.
inline std::string valueOf(const xmlAttr* attribute) {
    return toString(getProp(attribute->parent, attribute->name).get());
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
