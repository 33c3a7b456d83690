#ifndef OVELA_TUNE_COMMANDS_H
#define OVELA_TUNE_COMMANDS_H

#include <ovela/ProfileParamArray.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "CommandLine.h"

namespace ovela::tune {

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
int runTool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

// The tuning file a command reads: its one positional argument, or the
// sample shipped with the project. Fails (usage) on more than one.
bool tuningFileArgument(const CommandLine& line, std::string* path, std::ostream& err);
// The tuning files of a command that reads several: its positional
// arguments, or the sample.
bool tuningFileArguments(const CommandLine& line, std::vector<std::string>* paths,
                         std::ostream& err);

struct DumpSelection {
    std::string path;  // the file the store was loaded from, as the JSON names it
    bool json = false;
    std::optional<int> profile;         // only this profile
    std::optional<std::string> tuning;  // only this tuning
};

// Prints the arrays of `store` that `selection` names, all of them by default.
void dumpStore(ProfileParamArray& store, const DumpSelection& selection, std::ostream& out);

int runDump(const CommandLine& line, std::ostream& out, std::ostream& err);
int runTunings(const CommandLine& line, std::ostream& out, std::ostream& err);
int runApply(const CommandLine& line, std::ostream& out, std::ostream& err);
int runCheck(const CommandLine& line, std::ostream& out, std::ostream& err);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_COMMANDS_H
