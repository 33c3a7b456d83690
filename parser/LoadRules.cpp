#include "LoadRules.h"

namespace ovela {

const char* severityName(Severity severity) {
    switch (severity) {
        case Severity::ERROR:
            return "error";
        case Severity::WARNING:
            return "warning";
        case Severity::NOTE:
            return "note";
    }
    return "";
}

const LoadRule* ruleNamed(std::string_view name) {
    for (const LoadRule& rule : kLoadRules) {
        if (name == rule.name) {
            return &rule;
        }
    }
    return nullptr;
}

std::string messageOf(const LoadRule& rule, Slots slots) {
    const std::string_view message = rule.message;
    std::string text;
    size_t at = 0;
    while (at < message.size()) {
        const size_t open = message.find('{', at);
        const size_t close = open == std::string_view::npos ? open : message.find('}', open);
        if (close == std::string_view::npos) {
            text.append(message.substr(at));
            break;
        }
        text.append(message.substr(at, open - at));
        const std::string_view name = message.substr(open + 1, close - open - 1);
        const Slot* filled = nullptr;
        for (const Slot& slot : slots) {
            filled = slot.name == name ? &slot : filled;
        }
        if (filled != nullptr) {
            text += filled->value;
        } else {
            text.append(message.substr(open, close - open + 1));
        }
        at = close + 1;
    }
    return text;
}

}  // namespace ovela
