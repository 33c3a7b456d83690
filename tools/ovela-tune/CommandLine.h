#ifndef OVELA_TUNE_COMMAND_LINE_H
#define OVELA_TUNE_COMMAND_LINE_H

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ovela::tune {

// Exit codes of every command.
constexpr int kExitOk = 0;
// check: a file draws warnings (more than --max-warnings); diff: the files
// differ; apply: a call of the cache failed.
constexpr int kExitFindings = 1;
// Bad arguments, or an output that cannot be written.
constexpr int kExitUsage = 2;
// A file does not load; for check --werror, also a file that draws a warning.
constexpr int kExitDoesNotLoad = 3;

struct OptionSpec {
    const char* name;       // without the leading "--"
    const char* valueName;  // null for a flag
    const char* help;
    char shortName = '\0';  // "-o" for "--output"; none when 0
};

// The words after the command name: positional arguments, --options and
// their short forms; every word after "--" is positional.
class CommandLine {
  public:
    // Fails with a message for an unknown option or a missing value.
    static std::optional<CommandLine> parse(const std::vector<std::string>& words,
                                            const std::vector<OptionSpec>& specs,
                                            std::string* error);

    const std::vector<std::string>& positional() const { return mPositional; }
    bool has(const std::string& option) const { return mOptions.count(option) != 0; }
    // The value given last; every value of an option given more than once.
    std::string value(const std::string& option) const;
    std::vector<std::string> values(const std::string& option) const;

    // Whether the command's output goes to a terminal.
    bool toTerminal() const { return mToTerminal; }
    void setToTerminal(bool toTerminal) { mToTerminal = toTerminal; }

  private:
    std::vector<std::string> mPositional;
    std::map<std::string, std::vector<std::string>> mOptions;
    bool mToTerminal = false;
};

// Reads a whole decimal int; false for anything else.
bool parseInt(const std::string& text, int* out);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_COMMAND_LINE_H
