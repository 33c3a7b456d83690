#ifndef OVELA_TUNE_LSP_PLACES_H
#define OVELA_TUNE_LSP_PLACES_H

#include <set>

#include "DeviceData.h"
#include "LspDocument.h"

// Between the places that a load recorded and the tags of the text, for the
// answers of the server.
namespace ovela::tune::lsp {

// The tag that starts at the library's place, or null.
const ScannedTag* tagAt(const DocumentLoad& load, const Place& place);
// The place of a tag's text, from '<' to past '>'.
Place placeOf(const DocumentLoad& load, const ScannedTag& tag);
// The place of the element that `start` opens, to the end of its end tag.
Place elementPlaceOf(const DocumentLoad& load, const ScannedTag& start);
// Whether the place holds the byte offset.
bool holds(const DocumentLoad& load, const Place& place, size_t offset);

// The model of the load, null when the text does not load.
DeviceData* modelOf(DocumentLoad& load);

// The entity of `entities` that the load read from the element that starts
// with `tag`, or null.
template <typename Entity>
Entity* entityAt(DocumentLoad& load, const std::set<Entity*>& entities, const ScannedTag& tag) {
    for (Entity* entity : entities) {
        const TracedEntity* traced = load.file().report.trace().entityOf(entity);
        if (traced != nullptr && tagAt(load, traced->place) == &tag) {
            return entity;
        }
    }
    return nullptr;
}

inline Place entityPlace(DocumentLoad& load, const void* entity) {
    return load.file().report.trace().placeOf(entity);
}

}  // namespace ovela::tune::lsp

#endif  // OVELA_TUNE_LSP_PLACES_H
