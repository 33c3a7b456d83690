#include "SectionStream.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/uri.h>
#include <libxml/xmlIO.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>

namespace ovela {

namespace {

// The most bytes that one read of the file asks for, and the size of the
// pieces in which a compressed file's bytes follow.
constexpr size_t kLargestRead = 1 << 30;
constexpr size_t kPieceSize = 64 << 10;

}  // namespace

// The bytes of a document, handed to the parser piece by piece as it asks.
// A parser that reads its whole input from one buffer would meet libxml2's
// limit on a single lookup; one that reads pieces drops what it has parsed.
struct SectionStream::Input {
    static int read(void* context, char* buffer, int length) {
        auto* input = static_cast<Input*>(context);
        const size_t count = std::min(static_cast<size_t>(length), input->bytes.size() - input->at);
        memcpy(buffer, input->bytes.data() + input->at, count);
        input->at += count;
        return static_cast<int>(count);
    }

    const std::string& bytes;
    size_t at;
};

bool readTuningFileBytes(const std::string& path, std::string* bytes) {
    // libxml2's input layer opens the file (or its compressed form), and its
    // read callback fills the bytes directly, a plain file's in one piece.
    xmlParserInputBufferPtr input =
        xmlParserInputBufferCreateFilename(path.c_str(), XML_CHAR_ENCODING_NONE);
    if (input == nullptr || input->readcallback == nullptr) {
        xmlFreeParserInputBuffer(input);
        return false;
    }
    struct stat status;
    const size_t expected = stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode)
                                ? static_cast<size_t>(status.st_size)
                                : 0;
    // A plain file's bytes come in one read; what a compressed one gives
    // beyond its size on disk follows in pieces.
    bytes->resize(expected);
    size_t filled = 0;
    int read = 1;
    while (filled < expected && read > 0) {
        read = input->readcallback(input->context, bytes->data() + filled,
                                   static_cast<int>(std::min(expected - filled, kLargestRead)));
        filled += std::max(read, 0);
    }
    bytes->resize(filled);
    char piece[kPieceSize];
    while (read > 0) {
        read = input->readcallback(input->context, piece, sizeof(piece));
        bytes->append(piece, std::max(read, 0));
    }
    xmlFreeParserInputBuffer(input);
    return read == 0;
}

SectionStream::SectionStream(int options) : mOptions(options) {}

bool SectionStream::parse(const std::string& bytes, const std::string& url, Visit visit,
                          void* context) {
    Input input{bytes, 0};
    mParser = xmlCreateIOParserCtxt(nullptr, nullptr, Input::read, nullptr, &input,
                                    XML_CHAR_ENCODING_NONE);
    if (mParser == nullptr) {
        return false;
    }
    xmlCtxtUseOptions(mParser, mOptions);
    // The document is named by its path, for its messages and its base.
    if (mParser->input != nullptr && mParser->input->filename == nullptr) {
        mParser->input->filename = reinterpret_cast<const char*>(
            xmlCanonicPath(reinterpret_cast<const xmlChar*>(url.c_str())));
    }
    if (mParser->directory == nullptr) {
        mParser->directory = xmlParserGetDirectory(url.c_str());
    }
    // Only this parser's tree is cut into sections; the parsers that libxml2
    // starts for the content of entities share the handlers and build their
    // own.
    mParser->sax->startElementNs = startElement;
    mParser->sax->endElementNs = endElement;
    mParser->_private = this;
    mVisit = visit;
    mContext = context;

    xmlParseDocument(mParser);
    const bool wellFormed = mParser->wellFormed != 0;
    mDocument.reset(mParser->myDoc);
    mParser->myDoc = nullptr;
    freeSectionsBefore(nullptr);
    xmlFreeParserCtxt(mParser);
    mParser = nullptr;
    return wellFormed && mDocument != nullptr;
}

void SectionStream::startElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                                 const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                                 int attributeCount, int defaultedCount,
                                 const xmlChar** attributes) {
    xmlSAX2StartElementNs(context, localName, prefix, uri, namespaceCount, namespaces,
                          attributeCount, defaultedCount, attributes);
    auto* parser = static_cast<xmlParserCtxt*>(context);
    auto* self = static_cast<SectionStream*>(parser->_private);
    xmlNode* element = parser->node;
    if (self == nullptr || parser != self->mParser || element == nullptr) {
        return;
    }
    if (self->mRoot == nullptr) {
        if (element->parent == reinterpret_cast<xmlNode*>(parser->myDoc)) {
            self->mRoot = element;
        }
    } else if (element->parent == self->mRoot) {
        // The sections before the new one are done with, and the parser can no
        // longer add to the text between them.
        self->freeSectionsBefore(element);
    }
}

void SectionStream::endElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                               const xmlChar* uri) {
    auto* parser = static_cast<xmlParserCtxt*>(context);
    xmlNode* element = parser->node;
    xmlSAX2EndElementNs(context, localName, prefix, uri);
    auto* self = static_cast<SectionStream*>(parser->_private);
    if (self != nullptr && parser == self->mParser && element != nullptr &&
        self->mRoot != nullptr && element->parent == self->mRoot) {
        self->mVisit(self->mContext, element);
    }
}

void SectionStream::freeSectionsBefore(const xmlNode* stop) {
    while (mRoot != nullptr && mRoot->children != nullptr && mRoot->children != stop) {
        xmlNode* section = mRoot->children;
        xmlUnlinkNode(section);
        xmlFreeNode(section);
    }
}

}  // namespace ovela
