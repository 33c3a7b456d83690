#ifndef OVELA_SECTION_STREAM_H
#define OVELA_SECTION_STREAM_H

#include <libxml/tree.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "SourcePositions.h"
#include "Suppressions.h"
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

    // Takes the places of the elements and attributes of the sections into
    // `positions`, which the visit of a section may ask; each section's are
    // forgotten when it is freed.
    void recordPositions(SourcePositions* positions) { mPositions = positions; }
    // With positions recorded, also collects the suppression comments and
    // the elements they cover.
    std::vector<Suppression> takeSuppressions() { return mSuppressions.take(); }

    // Parses `bytes` to the end, calling `visit` with `context` for every
    // child element of the root in document order; `url` names the document,
    // as the file's path does for xmlReadFile. Returns whether the document is
    // well-formed.
    bool parse(const std::string& bytes, const std::string& url, Visit visit, void* context);

    // The document without its sections: its root element and its
    // declarations; null before a parse. Freed with the stream.
    const xmlDoc* document() const { return mDocument.get(); }
    bool hasRoot() const { return mRoot != nullptr; }

    // An entity reference that libxml2 left out of an attribute value
    // because the document declares no such entity (it may be declared in an
    // external DTD, which is never read).
    struct DroppedReference {
        const xmlNode* element;  // valid while its section is visited
        long line;
        std::string attribute;
        std::string entity;
    };
    // Every one so far, in document order: those of a section come before it
    // is visited.
    const std::vector<DroppedReference>& droppedReferences() const { return mDropped; }

  private:
    struct Input;
    static void startElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                             const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                             int attributeCount, int defaultedCount, const xmlChar** attributes);
    static void endElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                           const xmlChar* uri);
    static void comment(void* context, const xmlChar* value);
    static void reference(void* context, const xmlChar* name);
    static void processingInstruction(void* context, const xmlChar* target, const xmlChar* data);
    // Takes the place of the node that the parser added last, whose text
    // starts with `opening`; returns that node when it did.
    static const xmlNode* recordLast(void* context, std::string_view opening);
    static xmlEntity* getEntity(void* context, const xmlChar* name);
    // Finds the attributes of `element`, whose start tag the parser has just
    // read, that referred to the undeclared entities met since the last one.
    void noteDroppedReferences(const xmlNode* element);
    // Frees the root's children before `stop` (all of them for null).
    void freeSectionsBefore(const xmlNode* stop);

    int mOptions;
    xmlParserCtxt* mParser = nullptr;
    xml::Document mDocument;
    xmlNode* mRoot = nullptr;
    Visit mVisit = nullptr;
    void* mContext = nullptr;
    SourcePositions* mPositions = nullptr;
    SuppressionScopes mSuppressions;
    std::set<std::string> mUndeclared;
    std::vector<DroppedReference> mDropped;
};

}  // namespace ovela

#endif  // OVELA_SECTION_STREAM_H
