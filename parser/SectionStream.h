#ifndef OVELA_SECTION_STREAM_H
#define OVELA_SECTION_STREAM_H

#include <libxml/tree.h>

#include <string>

#include "XmlNodes.h"

// Parsing a tuning file one section at a time; not part of the library's
// interface.
namespace ovela {

// Parses a document with libxml2's own parser and tree builder, so that the
// tree is the one xmlReadFile builds with the same options, but hands over
// each child element of the root as soon as it is complete, whitespace text
// included, and frees it once the parser has moved past it. The memory held
// stays near one section's while the reader walks the same nodes as in the
// whole document.
class SectionStream {
  public:
    // Called with each child element of the root, complete.
    using Visit = void (*)(void* context, xmlNode* element);

    explicit SectionStream(int options);
    SectionStream(const SectionStream&) = delete;
    SectionStream& operator=(const SectionStream&) = delete;

    // Parses `bytes` to the end, calling `visit` with `context` for every
    // child element of the root in document order; `url` names the document,
    // as the file's path does for xmlReadFile. Returns whether the document is
    // well-formed.
    bool parse(const std::string& bytes, const std::string& url, Visit visit, void* context);

    // The document without its sections: its root element and its
    // declarations; null before a parse. Freed with the stream.
    const xmlDoc* document() const { return mDocument.get(); }
    bool hasRoot() const { return mRoot != nullptr; }

  private:
    struct Input;
    static void startElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                             const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                             int attributeCount, int defaultedCount, const xmlChar** attributes);
    static void endElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                           const xmlChar* uri);
    // Frees the root's children before `stop` (all of them for null).
    void freeSectionsBefore(const xmlNode* stop);

    int mOptions;
    xmlParserCtxt* mParser = nullptr;
    xml::Document mDocument;
    xmlNode* mRoot = nullptr;
    Visit mVisit = nullptr;
    void* mContext = nullptr;
};

}  // namespace ovela

#endif  // OVELA_SECTION_STREAM_H
