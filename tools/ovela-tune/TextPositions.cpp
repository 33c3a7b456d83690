#include "TextPositions.h"

#include <algorithm>

namespace ovela::tune {

namespace {

bool startsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) != 0x80;
}

// The bytes of the UTF-8 character that starts with `byte`; 1 for a byte that
// starts none, so that broken text still advances.
size_t characterBytes(char byte) {
    const auto b = static_cast<unsigned char>(byte);
    return b >= 0xf0 ? 4 : b >= 0xe0 ? 3 : b >= 0xc0 ? 2 : 1;
}

long unitsOf(size_t bytes, PositionEncoding encoding) {
    switch (encoding) {
        case PositionEncoding::UTF8:
            return static_cast<long>(bytes);
        case PositionEncoding::UTF16:
            // Characters past the basic plane take a surrogate pair.
            return bytes == 4 ? 2 : 1;
        case PositionEncoding::UTF32:
            return 1;
    }
    return 1;
}

}  // namespace

const char* encodingName(PositionEncoding encoding) {
    switch (encoding) {
        case PositionEncoding::UTF8:
            return "utf-8";
        case PositionEncoding::UTF16:
            return "utf-16";
        case PositionEncoding::UTF32:
            return "utf-32";
    }
    return "utf-16";
}

TextPositions::TextPositions(std::string_view text, PositionEncoding encoding)
    : mText(text), mEncoding(encoding) {
    mLineStarts.push_back(0);
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n') {
            mLineStarts.push_back(i + 1);
        }
    }
}

std::string_view TextPositions::lineText(size_t line) const {
    if (line >= mLineStarts.size()) {
        return {};
    }
    const size_t start = mLineStarts[line];
    size_t end = line + 1 < mLineStarts.size() ? mLineStarts[line + 1] - 1 : mText.size();
    if (end > start && mText[end - 1] == '\r') {
        --end;
    }
    return mText.substr(start, end - start);
}

EditorPosition TextPositions::toEditor(long line, long column) const {
    return editorPositionOf(offsetOfPlace(line, column));
}

EditorPosition TextPositions::editorPositionOf(size_t offset) const {
    offset = std::min(offset, mText.size());
    const size_t line =
        std::upper_bound(mLineStarts.begin(), mLineStarts.end(), offset) - mLineStarts.begin() - 1;
    long character = 0;
    for (size_t at = mLineStarts[line]; at < offset;) {
        const size_t bytes = std::min(characterBytes(mText[at]), offset - at);
        character += unitsOf(bytes, mEncoding);
        at += bytes;
    }
    return {static_cast<long>(line), character};
}

std::optional<size_t> TextPositions::offsetOf(EditorPosition position) const {
    if (position.line < 0 || static_cast<size_t>(position.line) >= mLineStarts.size()) {
        // The end of the text is where an editor appends.
        if (static_cast<size_t>(position.line) == mLineStarts.size() && position.character == 0) {
            return mText.size();
        }
        return std::nullopt;
    }
    const std::string_view text = lineText(position.line);
    size_t at = 0;
    for (long units = 0; units < position.character && at < text.size();) {
        const size_t bytes = std::min(characterBytes(text[at]), text.size() - at);
        units += unitsOf(bytes, mEncoding);
        at += bytes;
    }
    return mLineStarts[position.line] + at;
}

size_t TextPositions::offsetOfPlace(long line, long column) const {
    if (line < 1) {
        return 0;
    }
    if (static_cast<size_t>(line) > mLineStarts.size()) {
        return mText.size();
    }
    const std::string_view text = lineText(line - 1);
    size_t at = 0;
    for (long skipped = 1; skipped < column && at < text.size(); ++skipped) {
        at += std::min(characterBytes(text[at]), text.size() - at);
    }
    return mLineStarts[line - 1] + at;
}

std::pair<long, long> TextPositions::placeOf(size_t offset) const {
    offset = std::min(offset, mText.size());
    const size_t line =
        std::upper_bound(mLineStarts.begin(), mLineStarts.end(), offset) - mLineStarts.begin() - 1;
    const long characters =
        std::count_if(mText.begin() + mLineStarts[line], mText.begin() + offset, startsCharacter);
    return {static_cast<long>(line) + 1, characters + 1};
}

}  // namespace ovela::tune
