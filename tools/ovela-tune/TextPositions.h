#ifndef OVELA_TUNE_TEXT_POSITIONS_H
#define OVELA_TUNE_TEXT_POSITIONS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Positions in a text as an editor counts them and as the library does.
namespace ovela::tune {

// What an editor counts a column in: the client and the server agree on one
// when they start (UTF-16 code units unless both know another).
enum class PositionEncoding { UTF8, UTF16, UTF32 };

// "utf-8", "utf-16", "utf-32".
const char* encodingName(PositionEncoding encoding);

// A place as the editor gives it: 0-based line, column in the agreed units.
struct EditorPosition {
    long line = 0;
    long character = 0;
};

// The lines of one text, to turn the library's places (1-based lines and
// columns counted in characters) and the editor's into byte offsets.
class TextPositions {
  public:
    TextPositions(std::string_view text, PositionEncoding encoding);

    // The editor's position of the library's line and column; column 0 (not
    // known) is the start of the line, and a place past the text is its end.
    EditorPosition toEditor(long line, long column) const;
    EditorPosition editorPositionOf(size_t offset) const;
    // The byte offset of an editor's position, clamped to its line's end; none
    // for a line that the text does not have.
    std::optional<size_t> offsetOf(EditorPosition position) const;
    // The byte offset of the library's line and column, clamped to the text.
    size_t offsetOfPlace(long line, long column) const;
    // The library's 1-based line and character column of a byte offset.
    std::pair<long, long> placeOf(size_t offset) const;

    size_t lineCount() const { return mLineStarts.size(); }
    // The bytes of line `line` (0-based), without its line break.
    std::string_view lineText(size_t line) const;

  private:
    std::string_view mText;
    PositionEncoding mEncoding;
    std::vector<size_t> mLineStarts;
};

}  // namespace ovela::tune

#endif  // OVELA_TUNE_TEXT_POSITIONS_H
