#include "Commands.h"

#include <android/log.h>
#include <libxml/xmlerror.h>
#include <ovela/OvlProfileId.h>

#include <algorithm>

namespace ovela::tune {

namespace {

const OptionSpec kHelp{"help", nullptr, "show this help", 'h'};
const OptionSpec kSample{"sample", nullptr, "read the sample tuning file shipped with ovela-tune"};

constexpr const char* kExitCodes =
    "exit codes:\n"
    "  0  clean: nothing to report (diff: the files receive the same)\n"
    "  1  warnings, more than --max-warnings (diff: the files differ; apply: a call failed)\n"
    "  2  bad arguments, or an output that cannot be written\n"
    "  3  a file does not load (check --werror: or draws a warning)\n";

void printUsage(std::ostream& out) {
    out << "usage: ovela-tune [--verbose] COMMAND [OPTIONS] [--] [FILE...]\n"
           "       ovela-tune --help | --version\n\n"
           "Shows what an audio effect receives from a tuning file.\n\ncommands:\n";
    for (const Command& command : commands()) {
        out << "  " << command.name << std::string(10 - std::string(command.name).size(), ' ')
            << command.summary << "\n";
    }
    out << "\ncheck, diff and report need their FILEs; --sample names the sample\n"
        << OVELA_SAMPLE_TUNING_FILE << ", which dump, tunings and apply read without FILE.\n"
        << "--verbose, before or after COMMAND, shows the library's log lines on standard "
           "error.\n\n"
        << kExitCodes;
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
    out << "\n" << kExitCodes;
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
         "[FILE | --sample] [--json] [--raw] [--profile N] [--tuning NAME]",
         "print what the effect receives from FILE (the sample without FILE), by name",
         {{"json", nullptr, "print one JSON document"},
          {"raw", nullptr, "keep each array's own order, with the tunings' ordinals"},
          {"profile", "N", "only profile N (0 to 9, -1 for the general array)"},
          {"tuning", "NAME", "only the tuning NAME (default: the default tuning's entries)"},
          kSample,
          kHelp},
         runDump},
        {"diff",
         "FILE_A FILE_B [--json] [--stat]",
         "print what the effect receives differently from FILE_B than from FILE_A",
         {{"json", nullptr, "print one JSON document"},
          {"stat", nullptr, "print one line per array that differs, with counts"},
          {"sample", nullptr, "compare the sample shipped with ovela-tune, as FILE_A, with FILE"},
          kHelp},
         runDiff},
        {"tunings",
         "[FILE | --sample]",
         "list the tunings that each endpoint can select (the sample's without FILE)",
         {kSample, kHelp},
         runTunings},
        {"apply",
         "[FILE | --sample] --profile N [--endpoint E --tuning NAME]",
         "print the calls that a running effect receives for a profile or a tuning",
         {{"profile", "N", "profile to set (0 to 9, or -1)"},
          {"endpoint", "E", "endpoint whose tuning to select, by name"},
          {"tuning", "NAME", "tuning to select for the endpoint"},
          kSample,
          kHelp},
         runApply},
        {"check",
         "FILE... | --sample [--severity=LEVEL] [--format=FORMAT] [--disable=RULE,...]",
         "report what the load of each FILE skips, changes, drops or never sends",
         {{"severity", "error|warning|note",
           "show findings of this level and above (default: warning)"},
          {"format", "text|gcc|json|sarif",
           "FILE:LINE:COLUMN: LEVEL: message [rule] lines (text adds colour and carets on a "
           "terminal), JSON or SARIF 2.1.0"},
          {"disable", "RULE,...", "silence these rules in every file"},
          {"quiet", nullptr, "print the findings only, without the summary line", 'q'},
          {"color", "auto|always|never",
           "colour and source lines (auto: on a terminal, "
           "unless NO_COLOR is set)"},
          {"max-warnings", "N", "exit 1 only with more than N warnings shown (default: 0)"},
          {"werror", nullptr, "warnings count as errors for the exit code (3)"},
          {"rules", nullptr, "list every rule with its level and an example"},
          kSample,
          kHelp},
         runCheck},
        {"schema", "", "print the XML schema of the tuning file", {kHelp}, runSchema},
        {"report",
         "FILE | --sample [-o REPORT.html]",
         "write one HTML page with the curves and tables of FILE and its findings",
         {{"output", "REPORT.html", "write the page there instead of to standard output", 'o'},
          kSample,
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

int runTool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
            bool toTerminal) {
    // --verbose belongs to the tool, wherever it stands before "--".
    std::vector<std::string> words;
    bool verbose = false;
    bool optionsEnded = false;
    for (const std::string& word : arguments) {
        optionsEnded = optionsEnded || word == "--";
        if (!optionsEnded && word == "--verbose") {
            verbose = true;
        } else {
            words.push_back(word);
        }
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
        line->setToTerminal(toTerminal);
        Diagnostics diagnostics(verbose);
        return command.run(*line, out, err);
    }
    err << "ovela-tune: unknown command " << words[0] << "\n";
    printUsage(err);
    return kExitUsage;
}

std::vector<std::string> namedTuningFiles(const CommandLine& line) {
    std::vector<std::string> paths;
    if (line.has("sample")) {
        paths.push_back(OVELA_SAMPLE_TUNING_FILE);
    }
    paths.insert(paths.end(), line.positional().begin(), line.positional().end());
    return paths;
}

bool tuningFileArgument(const CommandLine& line, const char* command, bool sampleByDefault,
                        std::string* path, std::ostream& err) {
    std::vector<std::string> paths = namedTuningFiles(line);
    if (paths.empty() && sampleByDefault) {
        paths.push_back(OVELA_SAMPLE_TUNING_FILE);
    }
    if (paths.size() != 1) {
        err << "ovela-tune " << command << ": give one tuning file, or --sample\n";
        return false;
    }
    *path = paths[0];
    return true;
}

bool tuningFileArguments(const CommandLine& line, const char* command,
                         std::vector<std::string>* paths, std::ostream& err) {
    *paths = namedTuningFiles(line);
    if (paths->empty()) {
        // An empty list is most often a pattern that matched nothing: saying
        // nothing would pass it as clean.
        err << "ovela-tune " << command << ": give the tuning files to read, or --sample\n";
        return false;
    }
    return true;
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
