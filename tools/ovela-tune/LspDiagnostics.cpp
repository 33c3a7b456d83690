#include "LspDiagnostics.h"

#include <cctype>
#include <climits>
#include <string_view>

namespace ovela::tune::lsp {

namespace {

// LSP's DiagnosticSeverity.
int lspSeverity(Severity severity) {
    switch (severity) {
        case Severity::ERROR:
            return 1;
        case Severity::WARNING:
            return 2;
        case Severity::NOTE:
            return 3;
    }
    return 3;
}

// The rules' templates give the lines of other places as "at line N".
std::vector<long> namedLines(const std::string& message) {
    constexpr std::string_view kAtLine = "at line ";
    std::vector<long> lines;
    for (size_t at = message.find(kAtLine); at != std::string::npos;
         at = message.find(kAtLine, at + 1)) {
        const size_t digits = at + kAtLine.size();
        long line = 0;
        size_t end = digits;
        for (; end < message.size() && std::isdigit(static_cast<unsigned char>(message[end]));
             ++end) {
            line = line * 10 + (message[end] - '0');
        }
        if (end != digits) {
            lines.push_back(line);
        }
    }
    return lines;
}

Json lineRange(long line, const TextPositions& positions) {
    const std::string_view text = positions.lineText(line - 1);
    const size_t indent = std::min(text.find_first_not_of(" \t"), text.size());
    return rangeJson(positions.toEditor(line, static_cast<long>(indent) + 1),
                     positions.toEditor(line, static_cast<long>(text.size()) + 1));
}

}  // namespace

void readSettings(const Json& options, ServerSettings* settings) {
    if (const auto severity = stringAt(options, "severity")) {
        parseSeverity(*severity, &settings->filter.threshold);
    }
    if (const Json* disable = member(options, "disable");
        disable != nullptr && disable->is_array()) {
        settings->filter.disabled.clear();
        for (const Json& rule : *disable) {
            std::string ignored;
            if (rule.is_string()) {
                parseDisabledRules(rule.get<std::string>(), &settings->filter.disabled, &ignored);
            }
        }
    }
}

std::vector<LoadFinding> shownFindings(const LoadedFile& file, const ServerSettings& settings) {
    return showFindings(file, settings.filter).shown;
}

std::vector<long> linesNamedBy(const LoadFinding& finding) {
    return namedLines(finding.message);
}

Json rangeJson(EditorPosition start, EditorPosition end) {
    return {{"start", {{"line", start.line}, {"character", start.character}}},
            {"end", {{"line", end.line}, {"character", end.character}}}};
}

Json rangeOf(const LoadFinding& finding, const TextPositions& positions) {
    const EditorPosition start = positions.toEditor(finding.line, finding.column);
    // A finding without an end (a whole file, a place the parser could not
    // tell) marks its line from where it starts.
    EditorPosition end = finding.endLine != 0
                             ? positions.toEditor(finding.endLine, finding.endColumn)
                             : positions.toEditor(finding.line, LONG_MAX);
    if (end.line < start.line || (end.line == start.line && end.character < start.character)) {
        end = start;
    }
    return rangeJson(start, end);
}

Json diagnosticOf(const LoadFinding& finding, const std::string& uri,
                  const TextPositions& positions) {
    Json diagnostic = {{"range", rangeOf(finding, positions)},
                       {"severity", lspSeverity(finding.severity)},
                       {"code", finding.rule},
                       {"source", "ovela-tune"},
                       {"message", finding.message}};
    Json related = Json::array();
    for (long line : linesNamedBy(finding)) {
        related.push_back(
            {{"location", {{"uri", uri}, {"range", lineRange(line, positions)}}},
             {"message", "line " + std::to_string(line) + ", which the finding names"}});
    }
    if (!related.empty()) {
        diagnostic["relatedInformation"] = related;
    }
    return diagnostic;
}

Json diagnosticsOf(const LoadedFile& file, const ServerSettings& settings, const std::string& uri,
                   const TextPositions& positions) {
    Json diagnostics = Json::array();
    for (const LoadFinding& finding : shownFindings(file, settings)) {
        diagnostics.push_back(diagnosticOf(finding, uri, positions));
    }
    return diagnostics;
}

}  // namespace ovela::tune::lsp
