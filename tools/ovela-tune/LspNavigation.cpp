#include <algorithm>

#include "LspFeatures.h"
#include "LspPlaces.h"
#include "RecordedTuning.h"
#include "TuningFileVocabulary.h"

// Where a name of the file leads, as the load read it: an include to the
// preset that the profile selects, an endpoint section to the tuning that
// the endpoint starts with, a preset to the includes that select it.
namespace ovela::tune::lsp {

namespace {

enum SymbolKind { MODULE = 2, NAMESPACE = 3, CLASS = 5, PROPERTY = 7, FIELD = 8, STRUCT = 23 };

// The start tag at the editor's position and the elements around it.
struct TagContext {
    const ScannedTag* tag = nullptr;
    std::vector<const ScannedTag*> open;
};

TagContext startTagAt(const DocumentLoad& load, EditorPosition position) {
    const auto offset = load.offsetOf(position);
    if (!offset) {
        return {};
    }
    const CursorContext context = load.scan().contextAt(*offset);
    if (context.tag == nullptr || context.tag->closing) {
        return {};
    }
    return {context.tag, context.open};
}

// The profile around the tag, as the load read it.
Profile* enclosingProfile(DocumentLoad& load, DeviceData& model, const TagContext& at) {
    for (auto it = at.open.rbegin(); it != at.open.rend(); ++it) {
        if (Profile* profile = entityAt(load, model.getProfiles(), **it)) {
            return profile;
        }
    }
    return nullptr;
}

std::vector<IeqPreset*> presetsOfType(DeviceData& model, PresetType type) {
    std::vector<IeqPreset*> presets;
    for (IeqPreset* preset : model.getIeqPresets()) {
        if (preset->getType() == type) {
            presets.push_back(preset);
        }
    }
    return presets;
}

// The tuning that `endpoint` starts with, as the store keeps it: of several
// of one name, the last in the file replaced the others.
Tuning* startingTuning(DocumentLoad& load, DeviceData& model, Endpoint endpoint) {
    const std::string name = recordedTuning(*load.file().store, endpoint);
    Tuning* kept = nullptr;
    for (Tuning* tuning : model.getTunings()) {
        if (tuning->getName() == name &&
            (kept == nullptr || entityPlace(load, kept).line < entityPlace(load, tuning).line)) {
            kept = tuning;
        }
    }
    return kept;
}

Json sortedLocations(const DocumentLoad& load, std::vector<Place> places) {
    std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) {
        return std::tie(a.line, a.column) < std::tie(b.line, b.column);
    });
    Json locations = Json::array();
    for (const Place& place : places) {
        locations.push_back(locationOf(load, place));
    }
    return locations;
}

// The include elements of the profiles that select `type`.
std::vector<Place> includesSelecting(DocumentLoad& load, DeviceData& model, PresetType type) {
    std::vector<Place> places;
    for (Profile* profile : model.getProfiles()) {
        const ScannedTag* start = tagAt(load, entityPlace(load, profile));
        if (profile->getSelectedIeqPreset() != type || start == nullptr) {
            continue;
        }
        const Place element = elementPlaceOf(load, *start);
        for (const ScannedTag& tag : load.scan().tags()) {
            if (!tag.closing && tag.name == kIncludeElement && holds(load, element, tag.begin)) {
                places.push_back(placeOf(load, tag));
            }
        }
    }
    return places;
}

Json symbol(DocumentLoad& load, const void* entity, std::string name, std::string detail,
            SymbolKind kind) {
    const Place place = entityPlace(load, entity);
    const ScannedTag* start = tagAt(load, place);
    if (start == nullptr) {
        return nullptr;
    }
    const TextPositions& positions = load.positions();
    const Place whole = elementPlaceOf(load, *start);
    const Place selection = placeOf(load, *start);
    return {
        {"name", std::move(name)},
        {"detail", std::move(detail)},
        {"kind", kind},
        {"range", rangeJson(positions.toEditor(whole.line, whole.column),
                            positions.toEditor(whole.endLine, whole.endColumn))},
        {"selectionRange", rangeJson(positions.toEditor(selection.line, selection.column),
                                     positions.toEditor(selection.endLine, selection.endColumn))},
        {"children", Json::array()}};
}

// Puts `child` under the symbol of `parents` whose range holds it.
bool nest(Json& parents, Json child) {
    auto before = [](const Json& a, const Json& b) {
        return std::make_pair(a["line"].get<long>(), a["character"].get<long>()) <=
               std::make_pair(b["line"].get<long>(), b["character"].get<long>());
    };
    for (Json& parent : parents) {
        if (before(parent["range"]["start"], child["range"]["start"]) &&
            before(child["range"]["end"], parent["range"]["end"])) {
            parent["children"].push_back(std::move(child));
            return true;
        }
    }
    return false;
}

}  // namespace

Json definitionAt(DocumentLoad& load, EditorPosition position) {
    DeviceData* model = modelOf(load);
    const TagContext at = startTagAt(load, position);
    if (model == nullptr || at.tag == nullptr) {
        return nullptr;
    }
    if (at.tag->name == kIncludeElement) {
        Profile* profile = enclosingProfile(load, *model, at);
        if (profile == nullptr) {
            return nullptr;
        }
        std::vector<Place> places;
        for (IeqPreset* preset : presetsOfType(*model, profile->getSelectedIeqPreset())) {
            places.push_back(entityPlace(load, preset));
        }
        return places.empty() ? Json(nullptr) : sortedLocations(load, places);
    }
    if (at.tag->name == kEndpointTypeElement) {
        ProfileEndpoint* section = entityAt(load, model->getProfileEndpoints(), *at.tag);
        Tuning* tuning =
            section != nullptr ? startingTuning(load, *model, section->getEndpoint()) : nullptr;
        return tuning != nullptr ? locationOf(load, entityPlace(load, tuning)) : Json(nullptr);
    }
    return nullptr;
}

Json referencesAt(DocumentLoad& load, EditorPosition position) {
    DeviceData* model = modelOf(load);
    const TagContext at = startTagAt(load, position);
    if (model == nullptr || at.tag == nullptr) {
        return nullptr;
    }
    IeqPreset* preset = entityAt(load, model->getIeqPresets(), *at.tag);
    if (preset == nullptr) {
        return nullptr;
    }
    return sortedLocations(load, includesSelecting(load, *model, preset->getType()));
}

Json documentSymbols(DocumentLoad& load) {
    Json symbols = Json::array();
    DeviceData* model = modelOf(load);
    if (model == nullptr) {
        return symbols;
    }
    auto add = [&](Json found) {
        if (!found.is_null()) {
            symbols.push_back(std::move(found));
        }
    };
    if (General* general = model->getGeneral()) {
        add(symbol(load, general, "general", "", NAMESPACE));
    }
    for (IeqPreset* preset : model->getIeqPresets()) {
        add(symbol(load, preset, std::string("IEQ preset ") + kPresetTypeNames[preset->getType()],
                   "", STRUCT));
    }
    for (GeqPreset* preset : model->getGeqPresets()) {
        add(symbol(load, preset, "GEQ preset " + std::to_string(preset->getProfileId()), "",
                   STRUCT));
    }
    for (Profile* profile : model->getProfiles()) {
        add(symbol(load, profile, "profile " + std::to_string(profile->getProfileId()),
                   profile->getName(), CLASS));
    }
    for (Tuning* tuning : model->getTunings()) {
        add(symbol(load, tuning, "tuning " + tuning->getName(),
                   std::string("for ") + endpointName(tuning->getEndpoint()), MODULE));
    }
    std::sort(symbols.begin(), symbols.end(), [](const Json& a, const Json& b) {
        return a["range"]["start"]["line"].get<long>() < b["range"]["start"]["line"].get<long>();
    });
    // The endpoint sections and device bindings inside their sections.
    for (GeneralEndpoint* section : model->getGeneralEndpoints()) {
        nest(symbols, symbol(load, section, endpointName(section->getEndpoint()), "", FIELD));
    }
    for (ProfileEndpoint* section : model->getProfileEndpoints()) {
        Json found = symbol(load, section, endpointName(section->getEndpoint()), "", FIELD);
        if (!found.is_null()) {
            nest(symbols, std::move(found));
        }
    }
    for (DeviceTuning* binding : model->getDeviceTunings()) {
        Json found = symbol(load, binding, binding->getDevice(), binding->getPort(), PROPERTY);
        if (!found.is_null()) {
            nest(symbols, std::move(found));
        }
    }
    for (Json& parent : symbols) {
        std::sort(parent["children"].begin(), parent["children"].end(),
                  [](const Json& a, const Json& b) {
                      return a["range"]["start"]["line"].get<long>() <
                             b["range"]["start"]["line"].get<long>();
                  });
    }
    return symbols;
}

}  // namespace ovela::tune::lsp
