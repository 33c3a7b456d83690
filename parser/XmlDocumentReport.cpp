#include "XmlDocumentReport.h"

#include <libxml/globals.h>
#include <libxml/hash.h>
#include <libxml/parser.h>

#include <algorithm>

#include "LoadReport.h"

namespace ovela {

namespace {

std::string trimmed(const char* message) {
    std::string text = message == nullptr ? "" : message;
    while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) {
        text.pop_back();
    }
    return text;
}

}  // namespace

Place XmlDocumentReport::placeOf(const Error& error) {
    // libxml2 counts columns from 1, and gives 0 where it cannot tell.
    return {error.line, error.column, error.line, error.column};
}

XmlDocumentReport::XmlDocumentReport(LoadReport* report) : mReport(report) {
    if (mReport == nullptr) {
        return;
    }
    // The handler is libxml2's per-thread one, so this changes nothing for
    // other threads.
    mPreviousHandler = xmlStructuredError;
    mPreviousContext = xmlStructuredErrorContext;
    xmlSetStructuredErrorFunc(this, collect);
    mInstalled = true;
}

XmlDocumentReport::~XmlDocumentReport() {
    restore();
}

void XmlDocumentReport::restore() {
    if (mInstalled) {
        xmlSetStructuredErrorFunc(mPreviousContext, mPreviousHandler);
        mInstalled = false;
    }
}

int XmlDocumentReport::options() const {
    // A compact tree keeps short text in its nodes instead of beside them:
    // the same nodes, fewer allocations.
    return XML_PARSE_COMPACT | (mReport == nullptr ? 0 : XML_PARSE_BIG_LINES);
}

void XmlDocumentReport::collect(void* context, xmlError* error) {
    auto* self = static_cast<XmlDocumentReport*>(context);
    self->mErrors.push_back({error->code, error->str1 == nullptr ? "" : error->str1, error->level,
                             error->line, error->int2, trimmed(error->message)});
}

void XmlDocumentReport::parsed(const xmlDoc* document,
                               const std::vector<std::pair<long, std::string>>& explained) {
    restore();
    if (mReport == nullptr) {
        return;
    }
    if (document == nullptr) {
        // The first error is the cause; the ones after it follow from it.
        for (const Error& error : mErrors) {
            if (error.level >= XML_ERR_ERROR) {
                mReport->add(Rule::XML_SYNTAX, placeOf(error), {{"error", error.message}});
                return;
            }
        }
        mReport->add(Rule::XML_SYNTAX, Place(), {{"error", "libxml2 cannot read the file"}});
        return;
    }
    for (const Error& error : mErrors) {
        const bool isExplained = error.code == XML_WAR_UNDECLARED_ENTITY &&
                                 std::find(explained.begin(), explained.end(),
                                           std::make_pair(static_cast<long>(error.line),
                                                          error.subject)) != explained.end();
        if (!isExplained) {
            mReport->add(Rule::XML_WARNING, placeOf(error), {{"error", error.message}});
        }
    }
    const xmlDtd* declarations = document->intSubset;
    if (declarations != nullptr && declarations->entities != nullptr &&
        xmlHashSize(static_cast<xmlHashTablePtr>(declarations->entities)) > 0) {
        // libxml2 keeps no line for declarations: the finding names the root's.
        const xmlNode* root = xmlDocGetRootElement(document);
        const long line = root == nullptr ? 0 : xmlGetLineNo(root);
        mReport->add(Rule::ENTITY_DECLARATION, {line, 0, line, 0}, {});
    }
}

}  // namespace ovela
