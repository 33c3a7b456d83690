#ifndef OVELA_TUNE_COMMANDS_H
#define OVELA_TUNE_COMMANDS_H

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "CommandLine.h"

namespace ovela::tune {

struct FileContents;

// One command of the tool: its name, its help and what it runs. A command
// writes its results to `out` and its complaints to `err`, and returns an exit
// code.
struct Command {
    const char* name;
    const char* arguments;
    const char* summary;
    std::vector<OptionSpec> options;
    int (*run)(const CommandLine& line, std::ostream& out, std::ostream& err);
};

const std::vector<Command>& commands();

// Runs the tool on its arguments (without the program name), as main does.
// The library's log lines and libxml2's messages stay out of the output
// unless --verbose is given; then they go to standard error.
// `toTerminal` tells that `out` is a terminal, where check may colour.
int runTool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
            bool toTerminal = false);

// The tuning files that a command names: the shipped sample first where
// --sample asks for it, then its positional arguments.
std::vector<std::string> namedTuningFiles(const CommandLine& line);
// The one tuning file of a command that reads one: the file it names, or,
// when `sampleByDefault`, the sample when it names none. Complains (usage)
// otherwise.
bool tuningFileArgument(const CommandLine& line, const char* command, bool sampleByDefault,
                        std::string* path, std::ostream& err);
// The tuning files of a command that reads several: at least one, named.
bool tuningFileArguments(const CommandLine& line, const char* command,
                         std::vector<std::string>* paths, std::ostream& err);

// The value of --profile: -1 (the general array) to 9; complains otherwise.
bool parseProfileOption(const CommandLine& line, const char* command, int* profile,
                        std::ostream& err);

struct DumpSelection {
    bool json = false;
    bool raw = false;                   // entries in the arrays' own order, with ordinals
    std::optional<int> profile;         // only this profile
    std::optional<std::string> tuning;  // only this tuning
};

// Prints what `contents` holds, all of it by default.
void dumpFile(const FileContents& contents, const DumpSelection& selection, std::ostream& out);

int runDump(const CommandLine& line, std::ostream& out, std::ostream& err);
int runTunings(const CommandLine& line, std::ostream& out, std::ostream& err);
int runApply(const CommandLine& line, std::ostream& out, std::ostream& err);
int runCheck(const CommandLine& line, std::ostream& out, std::ostream& err);
int runDiff(const CommandLine& line, std::ostream& out, std::ostream& err);
int runSchema(const CommandLine& line, std::ostream& out, std::ostream& err);
int runReport(const CommandLine& line, std::ostream& out, std::ostream& err);
int runLsp(const CommandLine& line, std::ostream& out, std::ostream& err);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_COMMANDS_H
