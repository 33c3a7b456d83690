#include "RowReader.h"

#include <algorithm>
#include <cstdlib>

#include "TextReaders.h"

namespace ovela {

namespace {

bool onlySpace(const char* begin, const char* end) {
    return std::all_of(begin, end, isStreamSpace);
}

}  // namespace

void readRow(std::string_view text, std::vector<int>& row, RowProblems* problems) {
    int value = 0;
    const char* const end = text.data() + text.size();
    const char* field = text.data();
    while (field != end) {
        if (*field == ',') {
            // A comma at the start or after another comma closes an empty field.
            if (problems != nullptr && (field == text.data() || field[-1] == ',')) {
                ++problems->emptyFields;
            }
            ++field;
            continue;
        }
        const char* fieldEnd = field;
        while (fieldEnd != end && *fieldEnd != ',') {
            ++fieldEnd;
        }
        // strtol stops at the comma that ends the field, or at the text's NUL.
        char* numberEnd = nullptr;
        const long number = strtol(field, &numberEnd, 10);
        if (numberEnd != field) {
            // sscanf's "%d" keeps the low 32 bits of a number past the int range.
            value = static_cast<int>(number);
        }
        row.push_back(value);
        if (problems != nullptr) {
            if (numberEnd == field || !onlySpace(numberEnd, fieldEnd)) {
                if (++problems->notNumberCount <= RowProblems::kKept) {
                    problems->notNumbers.push_back(
                        {std::string(field, fieldEnd), value, numberEnd == field});
                }
            } else if (number != value && ++problems->outOfRangeCount <= RowProblems::kKept) {
                problems->outOfRange.emplace_back(std::string(field, fieldEnd), value);
            }
        }
        field = fieldEnd;
    }
}

}  // namespace ovela
