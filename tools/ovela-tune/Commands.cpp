#include "Commands.h"

#include <android/log.h>
#include <libxml/xmlerror.h>
#include <ovela/OvlProfileId.h>

#include <algorithm>

namespace ovela::tune {

namespace {

const OptionSpec kHelp{"help", nullptr, "show this help", 'h'};

void printUsage(std::ostream& out) {
    out << "usage: ovela-tune [--verbose] COMMAND [OPTIONS] [--] [FILE...]\n"
           "       ovela-tune --help | --version\n\n"
           "Shows what an audio effect receives from a tuning file.\n\ncommands:\n";
    for (const Command& command : commands()) {
        out << "  " << command.name << std::string(10 - std::string(command.name).size(), ' ')
            << command.summary << "\n";
    }
    out << "\nWithout FILE, commands read the sample " << OVELA_SAMPLE_TUNING_FILE
        << ".\n--verbose shows the library's log lines on standard error.\n";
}

void printCommandHelp(const Command& command, std::ostream& out) {
    out << "usage: ovela-tune " << command.name << " " << command.arguments << "\n\n"
        << command.summary << "\n\noptions:\n";
    for (const OptionSpec& option : command.options) {
        std::string left =
            option.shortName != '\0' ? std::string("-") + option.shortName + ", " : "";
        left += std::string("--") + option.name;
        if (option.valueName != nullptr) {
            left += std::string(" ") + option.valueName;
        }
        out << "  " << left << std::string(left.size() < 24 ? 24 - left.size() : 1, ' ')
            << option.help << "\n";
    }
}

void ignoreXmlMessage(void*, const char*, ...) {}

// Keeps the library's log lines and libxml2's messages out of the tool's
// output while a command runs, or lets them go to standard error.
class Diagnostics {
  public:
    explicit Diagnostics(bool verbose) : mPreviousPriority(__android_log_get_minimum_priority()) {
        __android_log_set_minimum_priority(verbose ? ANDROID_LOG_DEBUG : ANDROID_LOG_SILENT);
        if (!verbose) {
            xmlSetGenericErrorFunc(nullptr, ignoreXmlMessage);
        }
    }
    ~Diagnostics() {
        __android_log_set_minimum_priority(mPreviousPriority);
        xmlSetGenericErrorFunc(nullptr, nullptr);
    }

  private:
    int mPreviousPriority;
};

}  // namespace

const std::vector<Command>& commands() {
    static const std::vector<Command> kCommands = {
        {"dump",
         "[FILE] [--json] [--raw] [--profile N] [--tuning NAME]",
         "print what the effect receives from FILE, by name",
         {{"json", nullptr, "print one JSON document"},
          {"raw", nullptr, "keep each array's own order, with the tunings' ordinals"},
          {"profile", "N", "only profile N (0 to 9, -1 for the general array)"},
          {"tuning", "NAME", "only the tuning NAME (default: the default tuning's entries)"},
          kHelp},
         runDump},
        {"diff",
         "FILE_A FILE_B [--json] [--stat]",
         "print what the effect receives differently from FILE_B than from FILE_A",
         {{"json", nullptr, "print one JSON document"},
          {"stat", nullptr, "print one line per array that differs, with counts"},
          kHelp},
         runDiff},
        {"tunings", "[FILE]", "list the tunings that each endpoint can select", {kHelp}, runTunings},
        {"apply",
         "[FILE] --profile N [--endpoint E --tuning NAME]",
         "print the calls that a running effect receives for a profile or a tuning",
         {{"profile", "N", "profile to set (0 to 9, or -1)"},
          {"endpoint", "E", "endpoint whose tuning to select, by name"},
          {"tuning", "NAME", "tuning to select for the endpoint"},
          kHelp},
         runApply},
        {"check",
         "[FILE...] [--format=text|json] [--rules]",
         "report what the load of each FILE skips, changes, drops or never sends",
         {{"format", "text|json", "text lines FILE:LINE:COLUMN: LEVEL: message [rule], or JSON"},
          {"rules", nullptr, "list every rule with its level and an example"},
          kHelp},
         runCheck},
        {"schema", "", "print the XML schema of the tuning file", {kHelp}, runSchema},
        {"report",
         "[FILE] [-o REPORT.html]",
         "write one HTML page with the curves and tables of FILE and its findings",
         {{"output", "REPORT.html", "write the page there instead of to standard output", 'o'},
          kHelp},
         runReport},
        {"lsp",
         "",
         "serve editors over the Language Server Protocol on standard input and output",
         {kHelp},
         runLsp},
    };
    return kCommands;
}

int runTool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    // Options of the tool itself come before the command.
    std::vector<std::string> words = arguments;
    bool verbose = false;
    while (!words.empty() && words.front() == "--verbose") {
        verbose = true;
        words.erase(words.begin());
    }
    if (words.empty()) {
        printUsage(err);
        return kExitUsage;
    }
    if (words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
        printUsage(out);
        return kExitOk;
    }
    if (words[0] == "--version") {
        out << "ovela-tune " << OVELA_VERSION << "\n";
        return kExitOk;
    }
    for (const Command& command : commands()) {
        if (words[0] != command.name) {
            continue;
        }
        std::string error;
        std::vector<std::string> rest(words.begin() + 1, words.end());
        auto line = CommandLine::parse(rest, command.options, &error);
        if (!line) {
            err << "ovela-tune " << command.name << ": " << error << "\n";
            printCommandHelp(command, err);
            return kExitUsage;
        }
        if (line->has("help")) {
            printCommandHelp(command, out);
            return kExitOk;
        }
        Diagnostics diagnostics(verbose);
        return command.run(*line, out, err);
    }
    err << "ovela-tune: unknown command " << words[0] << "\n";
    printUsage(err);
    return kExitUsage;
}

bool tuningFileArgument(const CommandLine& line, std::string* path, std::ostream& err) {
    if (line.positional().size() > 1) {
        err << "ovela-tune: one tuning file at most\n";
        return false;
    }
    *path = line.positional().empty() ? OVELA_SAMPLE_TUNING_FILE : line.positional()[0];
    return true;
}

std::vector<std::string> tuningFileArguments(const CommandLine& line) {
    std::vector<std::string> paths = line.positional();
    if (paths.empty()) {
        paths.push_back(OVELA_SAMPLE_TUNING_FILE);
    }
    return paths;
}

bool parseProfileOption(const CommandLine& line, const char* command, int* profile,
                        std::ostream& err) {
    if (!parseInt(line.value("profile"), profile) || *profile < kGeneralProfileId ||
        *profile > kLastProfileId) {
        err << "ovela-tune " << command << ": --profile takes a number from " << kGeneralProfileId
            << " to " << kLastProfileId << "\n";
        return false;
    }
    return true;
}

}  // namespace ovela::tune
