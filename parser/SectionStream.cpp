#include "SectionStream.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/uri.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace ovela {

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
    mParser->sax->getEntity = getEntity;
    if (mPositions != nullptr) {
        mParser->sax->comment = comment;
        mParser->sax->reference = reference;
        mParser->sax->processingInstruction = processingInstruction;
    }
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
    if (!self->mUndeclared.empty()) {
        self->noteDroppedReferences(element);
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
    if (self->mPositions != nullptr) {
        self->mPositions->recordStartTag(element, parser->input);
        self->mSuppressions.startTag(element, self->mPositions->of(element));
    }
}

void SectionStream::endElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                               const xmlChar* uri) {
    auto* parser = static_cast<xmlParserCtxt*>(context);
    xmlNode* element = parser->node;
    xmlSAX2EndElementNs(context, localName, prefix, uri);
    auto* self = static_cast<SectionStream*>(parser->_private);
    if (self == nullptr || parser != self->mParser || element == nullptr) {
        return;
    }
    if (self->mPositions != nullptr) {
        // The parser stands just past the end tag, or the "/>" of an empty one.
        self->mSuppressions.endTag(element, parser->input->line, parser->input->col);
    }
    if (self->mRoot != nullptr && element->parent == self->mRoot) {
        self->mVisit(self->mContext, element);
    }
}

const xmlNode* SectionStream::recordLast(void* context, std::string_view opening) {
    auto* parser = static_cast<xmlParserCtxt*>(context);
    auto* self = static_cast<SectionStream*>(parser->_private);
    if (self == nullptr || parser != self->mParser || parser->inSubset != 0) {
        return nullptr;
    }
    // Outside the root element, the node went to the document.
    const xmlNode* parent =
        parser->node != nullptr ? parser->node : reinterpret_cast<const xmlNode*>(parser->myDoc);
    if (parent == nullptr || parent->last == nullptr) {
        return nullptr;
    }
    self->mPositions->recordNode(parent->last, parser->input, opening);
    return parent->last;
}

void SectionStream::comment(void* context, const xmlChar* value) {
    xmlSAX2Comment(context, value);
    if (const xmlNode* node = recordLast(context, "<!--")) {
        auto* self = static_cast<SectionStream*>(static_cast<xmlParserCtxt*>(context)->_private);
        self->mSuppressions.comment(xml::toString(value), self->mPositions->of(node));
    }
}

void SectionStream::reference(void* context, const xmlChar* name) {
    xmlSAX2Reference(context, name);
    recordLast(context, "&");
}

void SectionStream::processingInstruction(void* context, const xmlChar* target,
                                          const xmlChar* data) {
    xmlSAX2ProcessingInstruction(context, target, data);
    recordLast(context, "<?");
}

xmlEntity* SectionStream::getEntity(void* context, const xmlChar* name) {
    xmlEntity* entity = xmlSAX2GetEntity(context, name);
    auto* parser = static_cast<xmlParserCtxt*>(context);
    auto* self = static_cast<SectionStream*>(parser->_private);
    if (entity == nullptr && self != nullptr && parser == self->mParser) {
        self->mUndeclared.insert(xml::toString(name));
    }
    return entity;
}

void SectionStream::noteDroppedReferences(const xmlNode* element) {
    // The attributes are in the start tag as the file writes them.
    const std::string_view tag = startTagText(mParser->input);
    constexpr const char* kBlanks = " \t\r\n";
    for (size_t at = tag.find_first_of(kBlanks); at < tag.size();) {
        const size_t name = tag.find_first_not_of(kBlanks, at);
        const size_t equals = tag.find('=', name);
        const size_t open = tag.find_first_of("\"'", equals);
        const size_t close = open == std::string_view::npos ? open : tag.find(tag[open], open + 1);
        if (close == std::string_view::npos) {
            break;
        }
        std::string_view attribute = tag.substr(name, equals - name);
        attribute = attribute.substr(0, attribute.find_first_of(kBlanks));
        const std::string_view value = tag.substr(open + 1, close - open - 1);
        for (const std::string& entity : mUndeclared) {
            if (value.find("&" + entity + ";") != std::string_view::npos) {
                mDropped.push_back({element, xmlGetLineNo(element), std::string(attribute), entity});
            }
        }
        at = close + 1;
    }
    mUndeclared.clear();
}

void SectionStream::freeSectionsBefore(const xmlNode* stop) {
    if (mPositions != nullptr) {
        mPositions->clear();
    }
    while (mRoot != nullptr && mRoot->children != nullptr && mRoot->children != stop) {
        xmlNode* section = mRoot->children;
        xmlUnlinkNode(section);
        xmlFreeNode(section);
    }
}

}  // namespace ovela
