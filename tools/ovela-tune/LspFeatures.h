#ifndef OVELA_TUNE_LSP_FEATURES_H
#define OVELA_TUNE_LSP_FEATURES_H

#include "LspDiagnostics.h"
#include "LspDocument.h"
#include "LspJson.h"

// The answers of the server about one loaded text, each as the result of its
// request (null where there is nothing to say).
namespace ovela::tune::lsp {

// textDocument/hover: what the effect receives from the element or
// attribute at `position`, or why nothing, with the findings there that the
// settings show.
Json hoverAt(DocumentLoad& load, EditorPosition position, const ServerSettings& settings);
// textDocument/completion: element names, attribute names and closed sets of
// values that fit the place.
Json completionAt(DocumentLoad& load, EditorPosition position);
// textDocument/definition: the preset that an include reads as, or the
// tuning that a profile's endpoint section starts with.
Json definitionAt(DocumentLoad& load, EditorPosition position);
// textDocument/references: the includes that read as the preset at
// `position`.
Json referencesAt(DocumentLoad& load, EditorPosition position);
// textDocument/documentSymbol: the sections of the file.
Json documentSymbols(DocumentLoad& load);
// textDocument/formatting: the edits that indent the file canonically, none
// when they would change what the effect receives.
Json formattingEdits(DocumentLoad& load);
// textDocument/codeAction: the certain fixes of the shown findings in `range`.
Json codeActions(DocumentLoad& load, const Json& range, const ServerSettings& settings);

// Whether two loads give the effect the same arrays: every profile, the
// general array, every tuning and what each endpoint can select.
bool sameArrays(LoadedFile& a, LoadedFile& b);

// A location of the document: {"uri", "range"}.
Json locationOf(const DocumentLoad& load, const Place& place);

}  // namespace ovela::tune::lsp

#endif  // OVELA_TUNE_LSP_FEATURES_H
