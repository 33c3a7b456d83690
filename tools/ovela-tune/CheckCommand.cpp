#include <cstdlib>

#include "CheckOutput.h"
#include "Commands.h"

namespace ovela::tune {

namespace {

void printRules(std::ostream& out) {
    out << "| Rule | Level | Message | Example |\n|---|---|---|---|\n";
    for (const LoadRule& rule : kLoadRules) {
        out << "| `" << rule.name << "` | " << severityName(rule.severity) << " | `" << rule.message
            << "` | `" << rule.example << "` |\n";
    }
}

struct CheckOptions {
    std::string format = "text";
    FindingFilter filter;
    LineStyle style;
    int maxWarnings = 0;
};

bool parseOptions(const CommandLine& line, CheckOptions* options, std::ostream& err) {
    auto refuse = [&err](const std::string& message) {
        err << "ovela-tune check: " << message << "\n";
        return false;
    };
    if (line.has("format")) {
        options->format = line.value("format");
    }
    if (options->format != "text" && options->format != "gcc" && options->format != "json" &&
        options->format != "sarif") {
        return refuse("--format takes text, gcc, json or sarif");
    }
    if (line.has("severity") && !parseSeverity(line.value("severity"), &options->filter.threshold)) {
        return refuse("--severity takes error, warning or note");
    }
    for (const std::string& list : line.values("disable")) {
        std::string error;
        if (!parseDisabledRules(list, &options->filter.disabled, &error)) {
            return refuse(error);
        }
    }
    if (line.has("max-warnings") && (!parseInt(line.value("max-warnings"), &options->maxWarnings) ||
                                     options->maxWarnings < 0)) {
        return refuse("--max-warnings takes a number from 0");
    }
    const std::string colour = line.has("color") ? line.value("color") : "auto";
    if (colour != "auto" && colour != "always" && colour != "never") {
        return refuse("--color takes auto, always or never");
    }
    // Colour and source lines are for a person at a terminal; NO_COLOR asks
    // for no colour unless --color=always insists.
    const char* noColour = std::getenv("NO_COLOR");
    const bool terminal = line.toTerminal() || colour == "always";
    options->style.source = options->format == "text" && terminal;
    options->style.colour =
        options->format == "text" && colour != "never" &&
        (colour == "always" || (terminal && (noColour == nullptr || *noColour == '\0')));
    return true;
}

}  // namespace

int runCheck(const CommandLine& line, std::ostream& out, std::ostream& err) {
    if (line.has("rules")) {
        printRules(out);
        return kExitOk;
    }
    CheckOptions options;
    if (!parseOptions(line, &options, err)) {
        return kExitUsage;
    }
    std::vector<std::string> paths;
    if (!tuningFileArguments(line, "check", &paths, err)) {
        return kExitUsage;
    }
    // The real load of each file, with a report: what the effect would
    // receive is what check speaks about.
    std::vector<CheckedFile> files;
    int status = kExitOk;
    size_t warnings = 0;
    for (const std::string& path : paths) {
        CheckedFile checked{loadFile(path), {}};
        checked.findings = showFindings(*checked.file, options.filter);
        if (!checked.file->loads()) {
            status = kExitDoesNotLoad;
        }
        warnings += checked.findings.shownCount(Severity::WARNING);
        files.push_back(std::move(checked));
    }
    if (status == kExitOk && warnings != 0 && line.has("werror")) {
        status = kExitDoesNotLoad;
    } else if (status == kExitOk && warnings > static_cast<size_t>(options.maxWarnings)) {
        status = kExitFindings;
    }

    if (options.format == "json") {
        printCheckJson(files, out);
    } else if (options.format == "sarif") {
        printSarif(files, out);
    } else {
        for (const CheckedFile& checked : files) {
            printFindingLines(checked, options.style, out);
        }
        if (options.format == "text" && !line.has("quiet")) {
            out << summaryLine(files, options.filter.threshold) << "\n";
        }
    }
    return status;
}

}  // namespace ovela::tune
