#ifndef OVELA_TESTS_TOOL_RUN_H
#define OVELA_TESTS_TOOL_RUN_H

#include <sstream>
#include <string>
#include <vector>

#include "Commands.h"

namespace ovela::tune {

// A tuning file with one warning, a setting that reads as 0: line 4, column
// 13, missing-value.
inline constexpr char kOneWarningFile[] = R"(<tuning_file>
    <general>
        <settings>
            <auxiliary-system-gain-enable values="1"/>
        </settings>
    </general>
</tuning_file>
)";

struct ToolRun {
    int exitCode;
    std::string out;
    std::string err;
};

// Runs ovela-tune in-process, as main would with these arguments, its
// output going to a terminal or not.
inline ToolRun runOvelaTune(const std::vector<std::string>& arguments, bool toTerminal = false) {
    std::ostringstream out, err;
    const int exitCode = runTool(arguments, out, err, toTerminal);
    return {exitCode, out.str(), err.str()};
}

inline std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

// The output without its first line, which names the file.
inline std::string afterFirstLine(const std::string& text) {
    const size_t end = text.find('\n');
    return end == std::string::npos ? std::string() : text.substr(end + 1);
}

}  // namespace ovela::tune

#endif  // OVELA_TESTS_TOOL_RUN_H
