#include "Commands.h"

namespace ovela::tune {

namespace {

const OptionSpec kHelp{"help", nullptr, "show this help"};

void printUsage(std::ostream& out) {
    out << "usage: ovela-tune COMMAND [ARGS] [--help]\n\n"
           "Shows what an audio effect receives from a tuning file.\n\ncommands:\n";
    for (const Command& command : commands()) {
        out << "  " << command.name << std::string(10 - std::string(command.name).size(), ' ')
            << command.summary << "\n";
    }
    out << "\nWithout FILE, commands read the sample " << OVELA_SAMPLE_TUNING_FILE << ".\n";
}

void printCommandHelp(const Command& command, std::ostream& out) {
    out << "usage: ovela-tune " << command.name << " " << command.arguments << "\n\n"
        << command.summary << "\n\noptions:\n";
    for (const OptionSpec& option : command.options) {
        std::string left = std::string("--") + option.name;
        if (option.valueName != nullptr) {
            left += std::string(" ") + option.valueName;
        }
        out << "  " << left << std::string(left.size() < 20 ? 20 - left.size() : 1, ' ')
            << option.help << "\n";
    }
}

}  // namespace

const std::vector<Command>& commands() {
    static const std::vector<Command> kCommands = {
        {"dump",
         "[FILE] [--json] [--profile N] [--tuning NAME]",
         "print every packed array that the store builds from FILE",
         {{"json", nullptr, "print one JSON document"},
          {"profile", "N", "only profile N (0 to 9, -1 for the general array)"},
          {"tuning", "NAME", "only the tuning NAME"},
          kHelp},
         runDump},
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
    };
    return kCommands;
}

int runTool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    if (arguments.empty()) {
        printUsage(err);
        return kExitUsage;
    }
    if (arguments[0] == "--help" || arguments[0] == "help") {
        printUsage(out);
        return kExitOk;
    }
    for (const Command& command : commands()) {
        if (arguments[0] != command.name) {
            continue;
        }
        std::string error;
        std::vector<std::string> words(arguments.begin() + 1, arguments.end());
        auto line = CommandLine::parse(words, command.options, &error);
        if (!line) {
            err << "ovela-tune " << command.name << ": " << error << "\n";
            printCommandHelp(command, err);
            return kExitUsage;
        }
        if (line->has("help")) {
            printCommandHelp(command, out);
            return kExitOk;
        }
        return command.run(*line, out, err);
    }
    err << "ovela-tune: unknown command " << arguments[0] << "\n";
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

bool tuningFileArguments(const CommandLine& line, std::vector<std::string>* paths, std::ostream&) {
    *paths = line.positional();
    if (paths->empty()) {
        paths->push_back(OVELA_SAMPLE_TUNING_FILE);
    }
    return true;
}

}  // namespace ovela::tune
