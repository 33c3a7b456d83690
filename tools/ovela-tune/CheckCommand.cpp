#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>

#include "Commands.h"
#include "LoadReport.h"
#include "LoadedFile.h"

namespace ovela::tune {

namespace {

struct CheckedFile {
    std::string path;
    bool loads;
    std::vector<LoadFinding> findings;
    size_t count(Severity severity) const {
        return std::count_if(findings.begin(), findings.end(),
                             [&](const LoadFinding& f) { return f.severity == severity; });
    }
};

// The real load of the file, with a report: what the effect would receive is
// what check speaks about.
CheckedFile checkFile(const std::string& path) {
    const std::unique_ptr<LoadedFile> loaded = loadFile(path);
    CheckedFile file{path, loaded->loads(), loaded->report.findings()};
    // What stops the load comes first; the rest in the order of the file.
    std::stable_sort(file.findings.begin(), file.findings.end(),
                     [](const LoadFinding& a, const LoadFinding& b) {
                         if ((a.severity == Severity::ERROR) != (b.severity == Severity::ERROR)) {
                             return a.severity == Severity::ERROR;
                         }
                         return a.line < b.line;
                     });
    return file;
}

std::string counted(size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void printText(const std::vector<CheckedFile>& files, std::ostream& out) {
    for (const CheckedFile& file : files) {
        for (const LoadFinding& f : file.findings) {
            out << file.path << ":" << f.line << ":" << f.column << ": " << severityName(f.severity)
                << ": " << f.message << " [" << f.rule << "]\n";
        }
        out << file.path << ": " << (file.loads ? "loads" : "does not load") << ", "
            << counted(file.count(Severity::ERROR), "error") << ", "
            << counted(file.count(Severity::WARNING), "warning") << ", "
            << counted(file.count(Severity::NOTE), "note") << "\n";
    }
}

void printJson(const std::vector<CheckedFile>& files, std::ostream& out) {
    nlohmann::json document = {{"files", nlohmann::json::array()},
                               {"findings", nlohmann::json::array()}};
    for (const CheckedFile& file : files) {
        document["files"].push_back({{"file", file.path},
                                     {"loads", file.loads},
                                     {"errors", file.count(Severity::ERROR)},
                                     {"warnings", file.count(Severity::WARNING)},
                                     {"notes", file.count(Severity::NOTE)}});
        for (const LoadFinding& f : file.findings) {
            document["findings"].push_back({{"file", file.path},
                                            {"line", f.line},
                                            {"column", f.column},
                                            {"severity", severityName(f.severity)},
                                            {"rule", f.rule},
                                            {"message", f.message}});
        }
    }
    out << document.dump(2) << "\n";
}

void printRules(std::ostream& out) {
    out << "| Rule | Level | Example |\n|---|---|---|\n";
    for (size_t i = 0; i < kLoadRuleCount; ++i) {
        const LoadRule& rule = *kLoadRules[i];
        out << "| `" << rule.name << "` | " << severityName(rule.severity) << " | `" << rule.example
            << "` |\n";
    }
}

}  // namespace

int runCheck(const CommandLine& line, std::ostream& out, std::ostream& err) {
    if (line.has("rules")) {
        printRules(out);
        return kExitOk;
    }
    const std::string format = line.has("format") ? line.value("format") : "text";
    if (format != "text" && format != "json") {
        err << "ovela-tune check: --format takes text or json\n";
        return kExitUsage;
    }
    const std::vector<std::string> paths = tuningFileArguments(line);
    std::vector<CheckedFile> files;
    int status = kExitOk;
    for (const std::string& path : paths) {
        files.push_back(checkFile(path));
        if (!files.back().loads) {
            status = kExitDoesNotLoad;
        } else if (files.back().count(Severity::WARNING) != 0 && status == kExitOk) {
            status = kExitFindings;
        }
    }
    if (format == "json") {
        printJson(files, out);
    } else {
        printText(files, out);
    }
    return status;
}

}  // namespace ovela::tune
