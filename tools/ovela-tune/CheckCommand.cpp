#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>

#include "Commands.h"
#include "LoadReport.h"
#include "LoadedFile.h"

namespace ovela::tune {

namespace {

using Files = std::vector<std::unique_ptr<LoadedFile>>;

void printText(const Files& files, std::ostream& out) {
    for (const auto& file : files) {
        for (const LoadFinding& f : file->findings()) {
            out << file->path << ":" << f.line << ":" << f.column << ": "
                << severityName(f.severity) << ": " << f.message << " [" << f.rule << "]\n";
        }
        out << file->path << ": " << file->summary() << "\n";
    }
}

void printJson(const Files& files, std::ostream& out) {
    nlohmann::json document = {{"files", nlohmann::json::array()},
                               {"findings", nlohmann::json::array()}};
    for (const auto& file : files) {
        document["files"].push_back({{"file", file->path},
                                     {"loads", file->loads()},
                                     {"errors", file->count(Severity::ERROR)},
                                     {"warnings", file->count(Severity::WARNING)},
                                     {"notes", file->count(Severity::NOTE)}});
        for (const LoadFinding& f : file->findings()) {
            document["findings"].push_back({{"file", file->path},
                                            {"line", f.line},
                                            {"column", f.column},
                                            {"endLine", f.endLine},
                                            {"endColumn", f.endColumn},
                                            {"severity", severityName(f.severity)},
                                            {"rule", f.rule},
                                            {"message", f.message}});
        }
    }
    out << document.dump(2) << "\n";
}

void printRules(std::ostream& out) {
    out << "| Rule | Level | Message | Example |\n|---|---|---|---|\n";
    for (const LoadRule& rule : kLoadRules) {
        out << "| `" << rule.name << "` | " << severityName(rule.severity) << " | `" << rule.message
            << "` | `" << rule.example << "` |\n";
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
    // The real load of each file, with a report: what the effect would
    // receive is what check speaks about.
    Files files;
    int status = kExitOk;
    for (const std::string& path : tuningFileArguments(line)) {
        files.push_back(loadFile(path));
        if (!files.back()->loads()) {
            status = kExitDoesNotLoad;
        } else if (files.back()->count(Severity::WARNING) != 0 && status == kExitOk) {
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
