#ifndef OVELA_TUNE_LSP_DIAGNOSTICS_H
#define OVELA_TUNE_LSP_DIAGNOSTICS_H

#include <set>
#include <string>
#include <vector>

#include "LoadReport.h"
#include "LoadedFile.h"
#include "LspJson.h"
#include "TextPositions.h"

// The findings of a load as an editor shows them.
namespace ovela::tune::lsp {

// What the editor's user chose to see.
struct ServerSettings {
    // The least severe finding shown: an editor shows everything by default,
    // notes as information.
    Severity threshold = Severity::NOTE;
    std::set<std::string> disabledRules;
};

// Reads {"severity": "error"|"warning"|"note", "disable": [rule, ...]} over
// `settings`; what it does not give, or gives wrong, stays as it was.
void readSettings(const Json& options, ServerSettings* settings);

// The findings of `file` that the settings let through, as check orders
// them: the one place where findings are filtered.
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
