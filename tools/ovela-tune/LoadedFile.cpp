#include "LoadedFile.h"

#include <algorithm>

#include "CommandLine.h"
#include "ReportedLoads.h"

namespace ovela::tune {

std::unique_ptr<LoadedFile> loadFile(const std::string& path) {
    auto file = std::make_unique<LoadedFile>();
    file->path = path;
    const ReportedLoads reported(&file->report);
    file->store = std::make_unique<ProfileParamArray>(path);
    return file;
}

std::unique_ptr<LoadedFile> loadText(const std::string& name, const std::string& text) {
    auto file = std::make_unique<LoadedFile>();
    file->path = name;
    const ReportedLoads reported(&file->report);
    file->store = std::make_unique<ProfileParamArray>(text.data(), text.size(), name);
    return file;
}

std::vector<LoadFinding> LoadedFile::findings() const {
    std::vector<LoadFinding> findings = report.findings();
    std::stable_sort(findings.begin(), findings.end(),
                     [](const LoadFinding& a, const LoadFinding& b) {
                         if ((a.severity == Severity::ERROR) != (b.severity == Severity::ERROR)) {
                             return a.severity == Severity::ERROR;
                         }
                         return a.line < b.line || (a.line == b.line && a.column < b.column);
                     });
    return findings;
}

size_t LoadedFile::count(Severity severity) const {
    const std::vector<LoadFinding> all = report.findings();
    return std::count_if(all.begin(), all.end(), [&](const LoadFinding& finding) {
        return finding.severity == severity && !finding.suppressed;
    });
}

std::string LoadedFile::summary() const {
    auto counted = [&](Severity severity, const char* what) {
        const size_t n = count(severity);
        return std::to_string(n) + " " + what + (n == 1 ? "" : "s");
    };
    return std::string(loads() ? "loads" : "does not load") + ", " +
           counted(Severity::ERROR, "error") + ", " + counted(Severity::WARNING, "warning") + ", " +
           counted(Severity::NOTE, "note");
}

int doesNotLoad(const char* command, const LoadedFile& file, std::ostream& err) {
    for (const LoadFinding& finding : file.report.findings()) {
        if (finding.severity != Severity::ERROR) {
            continue;
        }
        err << "ovela-tune " << command << ": ";
        // A file that cannot be read has no line, and its message names it.
        if (finding.line > 0) {
            err << file.path << ":" << finding.line << ": ";
        } else if (finding.message.rfind(file.path, 0) != 0) {
            err << file.path << ": ";
        }
        err << finding.message << "\n";
    }
    return kExitDoesNotLoad;
}

}  // namespace ovela::tune
