#include "LspPlaces.h"

#include "LspFeatures.h"

namespace ovela::tune::lsp {

const ScannedTag* tagAt(const DocumentLoad& load, const Place& place) {
    if (place.line == 0) {
        return nullptr;
    }
    return load.scan().tagStartingAt(load.positions().offsetOfPlace(place.line, place.column));
}

Place placeOf(const DocumentLoad& load, const ScannedTag& tag) {
    const auto [line, column] = load.positions().placeOf(tag.begin);
    const auto [endLine, endColumn] =
        load.positions().placeOf(tag.end == std::string_view::npos ? tag.begin : tag.end);
    return {line, column, endLine, endColumn};
}

Place elementPlaceOf(const DocumentLoad& load, const ScannedTag& start) {
    const ScannedTag* end = load.scan().endTagOf(start);
    Place place = placeOf(load, start);
    if (end != nullptr) {
        const Place last = placeOf(load, *end);
        place.endLine = last.endLine;
        place.endColumn = last.endColumn;
    }
    return place;
}

bool holds(const DocumentLoad& load, const Place& place, size_t offset) {
    if (place.line == 0 || place.endLine == 0) {
        return false;
    }
    const TextPositions& positions = load.positions();
    return positions.offsetOfPlace(place.line, place.column) <= offset &&
           offset < positions.offsetOfPlace(place.endLine, place.endColumn);
}

DeviceData* modelOf(DocumentLoad& load) {
    return load.file().report.model();
}

Json locationOf(const DocumentLoad& load, const Place& place) {
    const TextPositions& positions = load.positions();
    return {{"uri", load.uri()},
            {"range", rangeJson(positions.toEditor(place.line, place.column),
                                positions.toEditor(place.endLine, place.endColumn))}};
}

}  // namespace ovela::tune::lsp
