#include "Suppressions.h"

#include <algorithm>

namespace ovela {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kTool = "ovela-tune";

std::string_view trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The next word of `text`, taken off it.
std::string_view nextWord(std::string_view& text) {
    text = text.substr(std::min(text.size(), text.find_first_not_of(kBlanks)));
    const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
    text.remove_prefix(word.size());
    return word;
}

bool notAfter(long line, long column, long endLine, long endColumn) {
    return line < endLine || (line == endLine && column <= endColumn);
}

}  // namespace

bool Suppression::silences(std::string_view rule, const Place& at) const {
    if (std::find(rules.begin(), rules.end(), rule) == rules.end()) {
        return false;
    }
    if (wholeFile) {
        return true;
    }
    if (scope.line == 0 || at.line == 0) {
        return false;
    }
    // Where the parser could not tell a column, the line decides.
    if (at.column == 0) {
        return scope.line <= at.line && at.line <= scope.endLine;
    }
    return notAfter(scope.line, scope.column, at.line, at.column) &&
           notAfter(at.line, at.column, scope.endLine, scope.endColumn);
}

std::optional<Suppression> suppressionIn(std::string_view comment) {
    std::string_view text = trimmed(comment);
    if (nextWord(text) != kTool) {
        return std::nullopt;
    }
    Suppression suppression;
    const std::string_view verb = nextWord(text);
    if (verb == "disable-file") {
        suppression.wholeFile = true;
    } else if (verb != "disable") {
        return std::nullopt;
    }
    // "a,b", "a, b": the list ends at the first word that no comma joins to
    // it, or at a colon; what follows says why.
    for (std::string_view word = nextWord(text); !word.empty();) {
        const bool colon = word.back() == ':';
        if (colon) {
            word.remove_suffix(1);
        }
        const bool more = !colon && !word.empty() && word.back() == ',';
        size_t at = 0;
        while (at <= word.size()) {
            const size_t comma = std::min(word.size(), word.find(',', at));
            if (comma > at) {
                suppression.rules.emplace_back(word.substr(at, comma - at));
            }
            at = comma + 1;
        }
        word = more ? nextWord(text) : std::string_view();
    }
    return suppression;
}

void SuppressionScopes::comment(std::string_view text, const Place& place) {
    std::optional<Suppression> suppression = suppressionIn(text);
    if (!suppression) {
        return;
    }
    suppression->comment = place;
    (suppression->wholeFile ? mDone : mWaiting).push_back(std::move(*suppression));
}

void SuppressionScopes::startTag(const xmlNode* element, const Place& place) {
    if (mWaiting.empty()) {
        return;
    }
    for (Suppression& suppression : mWaiting) {
        suppression.scope = place;
    }
    mOpen.push_back({element, std::move(mWaiting)});
    mWaiting.clear();
}

void SuppressionScopes::endTag(const xmlNode* element, long line, long column) {
    if (mOpen.empty() || mOpen.back().element != element) {
        return;
    }
    for (Suppression& suppression : mOpen.back().suppressions) {
        suppression.scope.endLine = line;
        suppression.scope.endColumn = column;
        mDone.push_back(std::move(suppression));
    }
    mOpen.pop_back();
}

std::vector<Suppression> SuppressionScopes::take() {
    // Those that no element followed stay, with no scope.
    for (Suppression& suppression : mWaiting) {
        mDone.push_back(std::move(suppression));
    }
    mWaiting.clear();
    std::stable_sort(mDone.begin(), mDone.end(), [](const Suppression& a, const Suppression& b) {
        return a.comment.line < b.comment.line ||
               (a.comment.line == b.comment.line && a.comment.column < b.comment.column);
    });
    return std::move(mDone);
}

}  // namespace ovela
