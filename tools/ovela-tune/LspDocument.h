#ifndef OVELA_TUNE_LSP_DOCUMENT_H
#define OVELA_TUNE_LSP_DOCUMENT_H

#include <memory>
#include <optional>
#include <string>

#include "FileContents.h"
#include "LoadedFile.h"
#include "LspJson.h"
#include "TagScan.h"
#include "TextPositions.h"

namespace ovela::tune::lsp {

// One text of an open document, loaded by the library as the effect's store
// loads a file: every answer about that text comes from here.
class DocumentLoad {
  public:
    DocumentLoad(std::string uri, std::string text, long version, PositionEncoding encoding);
    DocumentLoad(const DocumentLoad&) = delete;
    DocumentLoad& operator=(const DocumentLoad&) = delete;

    const std::string& uri() const { return mUri; }
    const std::string& text() const { return mText; }
    long version() const { return mVersion; }
    LoadedFile& file() { return *mFile; }
    const TextPositions& positions() const { return mPositions; }
    const TagScan& scan() const { return mScan; }
    // What the effect receives from the text, by name; asked for once.
    const FileContents& contents();

    // The byte offset of an editor's position; none past the text.
    std::optional<size_t> offsetOf(EditorPosition position) const {
        return mPositions.offsetOf(position);
    }

  private:
    const std::string mUri;
    const std::string mText;
    const long mVersion;
    std::unique_ptr<LoadedFile> mFile;
    const TextPositions mPositions;
    const TagScan mScan;
    std::optional<FileContents> mContents;
};

// The path that a file: URI names, for messages; the URI itself otherwise.
std::string pathOfUri(const std::string& uri);

// A position of a request's params: {"line": n, "character": n}.
std::optional<EditorPosition> positionOf(const Json& position);

// Applies one change of textDocument/didChange to `text`: the whole text,
// or a range of it replaced. False for a change that does not fit the text.
bool applyChange(const Json& change, PositionEncoding encoding, std::string* text);

}  // namespace ovela::tune::lsp

#endif  // OVELA_TUNE_LSP_DOCUMENT_H
