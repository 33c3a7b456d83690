#include "LspDocument.h"

namespace ovela::tune::lsp {

namespace {

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

DocumentLoad::DocumentLoad(std::string uri, std::string text, long version,
                           PositionEncoding encoding)
    : mUri(std::move(uri)),
      mText(std::move(text)),
      mVersion(version),
      mFile(loadText(pathOfUri(mUri), mText)),
      mPositions(mText, encoding),
      mScan(mText) {}

const FileContents& DocumentLoad::contents() {
    if (!mContents) {
        mContents = describe(*mFile);
    }
    return *mContents;
}

std::string pathOfUri(const std::string& uri) {
    constexpr std::string_view kScheme = "file://";
    if (uri.rfind(kScheme, 0) != 0) {
        return uri;
    }
    std::string path;
    for (size_t i = kScheme.size(); i < uri.size(); ++i) {
        if (uri[i] == '%' && i + 2 < uri.size() && hexValue(uri[i + 1]) >= 0 &&
            hexValue(uri[i + 2]) >= 0) {
            path += static_cast<char>(hexValue(uri[i + 1]) * 16 + hexValue(uri[i + 2]));
            i += 2;
        } else {
            path += uri[i];
        }
    }
    return path;
}

std::optional<EditorPosition> positionOf(const Json& position) {
    const auto line = integerAt(position, "line");
    const auto character = integerAt(position, "character");
    if (!line || !character || *line < 0 || *character < 0) {
        return std::nullopt;
    }
    return EditorPosition{static_cast<long>(*line), static_cast<long>(*character)};
}

bool applyChange(const Json& change, PositionEncoding encoding, std::string* text) {
    const auto replacement = stringAt(change, "text");
    if (!replacement) {
        return false;
    }
    const Json* range = member(change, "range");
    if (range == nullptr) {
        *text = *replacement;
        return true;
    }
    const auto start = positionOf(objectAt(*range, "start"));
    const auto end = positionOf(objectAt(*range, "end"));
    if (!start || !end) {
        return false;
    }
    const TextPositions positions(*text, encoding);
    const auto from = positions.offsetOf(*start);
    const auto to = positions.offsetOf(*end);
    if (!from || !to || *to < *from) {
        return false;
    }
    text->replace(*from, *to - *from, *replacement);
    return true;
}

}  // namespace ovela::tune::lsp
