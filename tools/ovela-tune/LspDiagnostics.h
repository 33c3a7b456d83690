#ifndef OVELA_TUNE_LSP_DIAGNOSTICS_H
#define OVELA_TUNE_LSP_DIAGNOSTICS_H

#include <string>
#include <vector>

#include "FindingFilter.h"
#include "LoadReport.h"
#include "LoadedFile.h"
#include "LspJson.h"
#include "TextPositions.h"

// The findings of a load as an editor shows them.
namespace ovela::tune::lsp {

// What the editor's user chose to see, as check's --severity and --disable
// choose; the file's suppression comments apply as for check.
struct ServerSettings {
    // An editor shows everything by default, notes as information.
    FindingFilter filter{Severity::NOTE, {}};
};

// Reads {"severity": "error"|"warning"|"note", "disable": [rule, ...]} over
// `settings`; what it does not give stays as it was, and what it gives wrong
// (a level or a rule that does not exist) is left out.
void readSettings(const Json& options, ServerSettings* settings);

// The findings of `file` that the settings and the file's comments let
// through, as check shows them.
std::vector<LoadFinding> shownFindings(const LoadedFile& file, const ServerSettings& settings);

// The lines of earlier places that a finding's message names: "(first at
// line 12)", "the preset ieq_warm at line 40".
std::vector<long> linesNamedBy(const LoadFinding& finding);

// The LSP range of a finding: from its line and column to its end.
Json rangeOf(const LoadFinding& finding, const TextPositions& positions);
Json rangeJson(EditorPosition start, EditorPosition end);

// The diagnostic of one finding of the document `uri`.
Json diagnosticOf(const LoadFinding& finding, const std::string& uri,
                  const TextPositions& positions);

// The diagnostics of `file` for the document `uri`, whose text `positions`
// counts.
Json diagnosticsOf(const LoadedFile& file, const ServerSettings& settings, const std::string& uri,
                   const TextPositions& positions);

}  // namespace ovela::tune::lsp

#endif  // OVELA_TUNE_LSP_DIAGNOSTICS_H
