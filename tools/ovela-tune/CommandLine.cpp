#include "CommandLine.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

namespace ovela::tune {

std::optional<CommandLine> CommandLine::parse(const std::vector<std::string>& words,
                                              const std::vector<OptionSpec>& specs,
                                              std::string* error) {
    CommandLine line;
    bool optionsEnded = false;
    for (size_t i = 0; i < words.size(); ++i) {
        std::string word = words[i];
        if (!optionsEnded && word == "--") {
            optionsEnded = true;
            continue;
        }
        if (!optionsEnded && word.size() == 2 && word[0] == '-') {
            // A short option stands for its long one.
            for (const OptionSpec& spec : specs) {
                if (spec.shortName == word[1]) {
                    word = std::string("--") + spec.name;
                }
            }
        }
        if (optionsEnded || word.rfind("--", 0) != 0) {
            if (!optionsEnded && word.size() > 1 && word[0] == '-') {
                *error = "unknown option " + word;
                return std::nullopt;
            }
            line.mPositional.push_back(word);
            continue;
        }
        std::string name = word.substr(2);
        std::string value;
        bool inlineValue = false;
        if (size_t equals = name.find('='); equals != std::string::npos) {
            value = name.substr(equals + 1);
            name = name.substr(0, equals);
            inlineValue = true;
        }
        const OptionSpec* spec = nullptr;
        for (const OptionSpec& candidate : specs) {
            if (name == candidate.name) {
                spec = &candidate;
            }
        }
        if (spec == nullptr) {
            *error = "unknown option --" + name;
            return std::nullopt;
        }
        if (spec->valueName != nullptr && !inlineValue) {
            if (i + 1 == words.size()) {
                *error = "--" + name + " needs a value (" + spec->valueName + ")";
                return std::nullopt;
            }
            value = words[++i];
        } else if (spec->valueName == nullptr && inlineValue) {
            *error = "--" + name + " takes no value";
            return std::nullopt;
        }
        line.mOptions[name].push_back(value);
    }
    return line;
}

std::string CommandLine::value(const std::string& option) const {
    auto found = mOptions.find(option);
    return found == mOptions.end() ? "" : found->second.back();
}

std::vector<std::string> CommandLine::values(const std::string& option) const {
    auto found = mOptions.find(option);
    return found == mOptions.end() ? std::vector<std::string>() : found->second;
}

bool parseInt(const std::string& text, int* out) {
    if (text.empty()) {
        return false;
    }
    char* end = nullptr;
    errno = 0;
    long value = std::strtol(text.c_str(), &end, 10);
    if (*end != '\0' || errno != 0 || value < INT_MIN || value > INT_MAX) {
        return false;
    }
    *out = static_cast<int>(value);
    return true;
}

}  // namespace ovela::tune
