#ifndef OVELA_XML_DOCUMENT_REPORT_H
#define OVELA_XML_DOCUMENT_REPORT_H

#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <string>
#include <utility>
#include <vector>

#include "SourcePositions.h"

// What libxml2 says while it reads a tuning file, for a load that reports;
// not part of the library's interface.
namespace ovela {

class LoadReport;

// Lives around one xmlReadFile call. With a report it collects libxml2's
// errors instead of letting them go to stderr, and tells the report why a
// document could not be read, or what libxml2 recovered from; without one it
// changes nothing.
class XmlDocumentReport {
  public:
    explicit XmlDocumentReport(LoadReport* report);
    ~XmlDocumentReport();
    XmlDocumentReport(const XmlDocumentReport&) = delete;
    XmlDocumentReport& operator=(const XmlDocumentReport&) = delete;

    // The options to read the file with: none that changes the tree, which
    // holds every node, whitespace text included; compact small text, and,
    // with a report, line numbers past 65535.
    int options() const;
    // Call with what xmlReadFile returned. libxml2's warnings about the
    // undeclared entities of `explained` (entity names by line), which the
    // reader reports itself, are left out.
    void parsed(const xmlDoc* document,
                const std::vector<std::pair<long, std::string>>& explained = {});

  private:
    struct Error {
        int code;
        std::string subject;  // what the error names, such as an entity
        int level;
        long line;
        long column;
        std::string message;
    };
    static Place placeOf(const Error& error);
    static void collect(void* context, xmlError* error);
    void restore();

    LoadReport* mReport;
    xmlStructuredErrorFunc mPreviousHandler = nullptr;
    void* mPreviousContext = nullptr;
    bool mInstalled = false;
    std::vector<Error> mErrors;
};

}  // namespace ovela

#endif  // OVELA_XML_DOCUMENT_REPORT_H
