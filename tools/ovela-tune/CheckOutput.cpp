#include "CheckOutput.h"

#include <fstream>
#include <optional>
#include <sstream>

#include "JsonOutput.h"
#include "TextPositions.h"

namespace ovela::tune {

namespace {

constexpr const char* kBold = "\033[1m";
constexpr const char* kReset = "\033[m";
constexpr const char* kCaretColour = "\033[1;32m";

const char* colourOf(Severity severity) {
    switch (severity) {
        case Severity::ERROR:
            return "\033[1;31m";
        case Severity::WARNING:
            return "\033[1;35m";
        case Severity::NOTE:
            return "\033[1;36m";
    }
    return "";
}

// The text of a file and its lines, read when a finding first asks for one.
class SourceLines {
  public:
    explicit SourceLines(const std::string& path) : mPath(path) {}

    const TextPositions& positions() {
        if (!mPositions) {
            std::ifstream file(mPath, std::ios::binary);
            std::ostringstream text;
            text << file.rdbuf();
            mText = text.str();
            mPositions.emplace(mText, PositionEncoding::UTF8);
        }
        return *mPositions;
    }

  private:
    std::string mPath;
    std::string mText;
    std::optional<TextPositions> mPositions;
};

// A caret under the finding's column and tildes under the rest of it on that
// line; tabs stay tabs, so that the caret stands where the terminal shows
// the character.
std::string caretLine(const TextPositions& positions, const LoadFinding& finding) {
    const std::string_view text = positions.lineText(finding.line - 1);
    const size_t start = positions.offsetOfPlace(finding.line, finding.column) -
                         positions.offsetOfPlace(finding.line, 0);
    std::string marker;
    for (size_t at = 0; at < start; ++at) {
        if ((static_cast<unsigned char>(text[at]) & 0xc0) != 0x80) {
            marker += text[at] == '\t' ? '\t' : ' ';
        }
    }
    marker += '^';
    const long end = finding.endLine == finding.line ? finding.endColumn : 0;
    const long lineEnd = static_cast<long>(finding.column + text.size() - start);
    for (long column = finding.column + 1; column < std::min(end, lineEnd + 1); ++column) {
        marker += '~';
    }
    return marker;
}

std::string counted(size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

void printFindingLines(const CheckedFile& checked, const LineStyle& style, std::ostream& out) {
    SourceLines source(checked.file->path);
    for (const LoadFinding& finding : checked.findings.shown) {
        std::string place = checked.file->path + ":";
        if (finding.line > 0) {
            place += std::to_string(finding.line) + ":" +
                     std::to_string(std::max(finding.column, 1L)) + ":";
        }
        const char* level = severityName(finding.severity);
        if (!style.colour) {
            out << place << " " << level << ": " << finding.message << " [" << finding.rule << "]\n";
        } else {
            const char* colour = colourOf(finding.severity);
            out << kBold << place << kReset << " " << colour << level << ":" << kReset << " "
                << finding.message << " [" << colour << finding.rule << kReset << "]\n";
        }
        if (!style.source || finding.line <= 0 || finding.column <= 0) {
            continue;
        }
        const TextPositions& positions = source.positions();
        out << positions.lineText(finding.line - 1) << "\n";
        out << (style.colour ? kCaretColour : "") << caretLine(positions, finding)
            << (style.colour ? kReset : "") << "\n";
    }
}

std::string summaryLine(const std::vector<CheckedFile>& files, Severity threshold) {
    size_t doNotLoad = 0;
    size_t shown[3] = {};
    size_t hidden[3] = {};
    size_t suppressed = 0;
    for (const CheckedFile& checked : files) {
        doNotLoad += checked.file->loads() ? 0 : 1;
        for (size_t level = 0; level < 3; ++level) {
            shown[level] += checked.findings.shownCount(static_cast<Severity>(level));
            hidden[level] += checked.findings.hidden[level];
        }
        suppressed += checked.findings.suppressed.size();
    }
    std::string line;
    if (files.size() == 1) {
        line = files[0].file->path + ": " + (doNotLoad == 0 ? "loads" : "does not load");
    } else {
        line = counted(files.size(), "file") + ": " + std::to_string(files.size() - doNotLoad) +
               " load, " + std::to_string(doNotLoad) + " do not load";
    }
    // The levels shown are counted; those below the threshold are counted
    // apart, with the option that shows them.
    line += ", " + counted(shown[0], "error");
    if (threshold != Severity::ERROR) {
        line += ", " + counted(shown[1], "warning");
    }
    if (threshold == Severity::NOTE) {
        line += ", " + counted(shown[2], "note");
    }
    std::string notShown;
    if (hidden[1] != 0) {
        notShown = counted(hidden[1], "warning");
    }
    if (hidden[2] != 0) {
        notShown += (notShown.empty() ? "" : " and ") + counted(hidden[2], "note");
    }
    if (!notShown.empty()) {
        line += ", " + notShown + " not shown: --severity=" + (hidden[2] != 0 ? "note" : "warning");
    }
    if (suppressed != 0) {
        line += ", " + std::to_string(suppressed) + " suppressed";
    }
    return line;
}

void printCheckJson(const std::vector<CheckedFile>& files, std::ostream& out) {
    nlohmann::json document = {
        {"version", 1}, {"files", nlohmann::json::array()}, {"findings", nlohmann::json::array()}};
    for (const CheckedFile& checked : files) {
        const LoadedFile& file = *checked.file;
        // Counted from the findings already filtered: each once, either
        // kept or suppressed.
        const ShownFindings& findings = checked.findings;
        document["files"].push_back({{"file", file.path},
                                     {"loads", file.loads()},
                                     {"errors", findings.keptCount(Severity::ERROR)},
                                     {"warnings", findings.keptCount(Severity::WARNING)},
                                     {"notes", findings.keptCount(Severity::NOTE)},
                                     {"suppressed", findings.suppressed.size()}});
        for (const LoadFinding& f : checked.findings.shown) {
            document["findings"].push_back({{"file", file.path},
                                            {"line", f.line},
                                            {"column", f.column},
                                            {"endLine", f.endLine},
                                            {"endColumn", f.endColumn},
                                            {"severity", severityName(f.severity)},
                                            {"rule", f.rule},
                                            {"message", f.message}});
        }
    }
    writeJson(document, out);
}

}  // namespace ovela::tune
