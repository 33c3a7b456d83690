#ifndef OVELA_TUNING_FILE_VOCABULARY_H
#define OVELA_TUNING_FILE_VOCABULARY_H

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Parameter.h"
#include "PresetType.h"

// The element and attribute names of the tuning file, each written once. The
// reader reads with these tables, and the description of the file's shape
// (TuningFileShape.h), which the tools read, is built from them.
//
// Where a table's comment names its place it uses element paths from the
// root, "*" standing for the root, whose name the reader does not check.
//
// Some elements the reader takes by their position and never by their name:
// the wrappers of "general" and "preset", the parameter container of a
// profile, the data element of a tuning and the rows of band tables and
// matrices. The format still gives each of them a name, written here once;
// the reader reads a file that names them otherwise all the same, and a load
// with a report says so.

namespace ovela {

template <typename Value>
using NameEntry = std::pair<const char*, Value>;

// A view of a name table, so that one table can list others.
template <typename Value>
struct NameTable {
    template <size_t N>
    constexpr NameTable(const NameEntry<Value> (&table)[N]) : entries(table), size(N) {}
    constexpr const NameEntry<Value>* begin() const { return entries; }
    constexpr const NameEntry<Value>* end() const { return entries + size; }

    const NameEntry<Value>* entries;
    size_t size;
};

// Whether the table name `entry` is exactly `name`. Most names of a table
// differ from the one looked up in their first character, which settles them
// without measuring `entry`.
constexpr bool isName(const char* entry, std::string_view name) {
    return (name.empty() || *entry == name.front()) && name == entry;
}

// The entry of `table` under exactly `name` (case-sensitive, whole name), or
// null. Works on a table array and on a NameTable alike.
template <typename Table>
constexpr auto findEntry(const Table& table, std::string_view name)
    -> decltype(&*std::begin(table)) {
    for (const auto& entry : table) {
        if (isName(entry.first, name)) {
            return &entry;
        }
    }
    return nullptr;
}

// The value that `table` holds under exactly `name`, or null.
template <typename Table>
constexpr auto findByName(const Table& table, std::string_view name)
    -> decltype(&std::begin(table)->second) {
    const auto* entry = findEntry(table, name);
    return entry == nullptr ? nullptr : &entry->second;
}

// The value of the first entry of `table` whose word occurs anywhere in
// `text`, or null: the preset names are searched for words in table order.
template <typename Table>
auto findWordIn(const Table& table, std::string_view text) -> decltype(&std::begin(table)->second) {
    for (const auto& entry : table) {
        if (text.find(entry.first) != std::string_view::npos) {
            return &entry.second;
        }
    }
    return nullptr;
}

// ---- Words shared by several elements ----

// Setting elements hold their number or truth word here, as their first attribute.
inline constexpr char kValueAttribute[] = "value";
// Row elements hold their comma-separated numbers in their first attribute,
// which the reader reads whatever its name; the format calls it so.
inline constexpr char kRowAttribute[] = "data";
inline constexpr char kTrueWord[] = "true";
// Band rows give their band's frequency in this attribute, their first column.
inline constexpr char kBandFrequencyAttribute[] = "frequency";
inline constexpr char kFalseWord[] = "false";
inline constexpr NameEntry<int> kTruthWords[] = {{kTrueWord, 1}, {kFalseWord, 0}};

// One endpoint's settings, inside "*/general/settings" and "*/profile/settings". Its first
// attribute, if named "id", names the endpoint (kEndpointNames).
inline constexpr char kEndpointTypeElement[] = "endpoint_type";
inline constexpr char kEndpointIdAttribute[] = "id";

// ---- Root ----

enum class Section { FORMAT_VERSION, TOOL_VERSION, GENERAL, PRESET, PROFILE, TUNING };

// Children of the root element ("*").
inline constexpr NameEntry<Section> kSectionElements[] = {
    {"format_version", Section::FORMAT_VERSION},
    {"tool_version", Section::TOOL_VERSION},
    {"general", Section::GENERAL},
    {"preset", Section::PRESET},
    {"profile", Section::PROFILE},
    {"tuning", Section::TUNING},
};

// Index of each part in the version text "major.minor.maintenance".
enum VersionPart { VERSION_MAJOR, VERSION_MINOR, VERSION_MAINTENANCE };

// Attributes of "*/format_version" and "*/tool_version".
inline constexpr NameEntry<VersionPart> kVersionAttributes[] = {
    {"major", VERSION_MAJOR},
    {"minor", VERSION_MINOR},
    {"maintenance", VERSION_MAINTENANCE},
};

// ---- General ----

// The wrapper of the general settings, "*/general/settings".
inline constexpr char kGeneralSettingsElement[] = "settings";

// Children of "*/general/settings" besides kEndpointTypeElement; each holds one value.
inline constexpr NameEntry<Parameter> kGeneralElements[] = {
    {"auxiliary-system-gain-enable", AUXILIARY_SYSTEM_GAIN_ENABLE},
};

// Children of "*/general/settings/endpoint_type"; each holds one value.
inline constexpr NameEntry<Parameter> kGeneralEndpointElements[] = {
    {"auxiliary-system-gain", AUXILIARY_SYSTEM_GAIN},
};

// ---- Presets ----

enum class PresetAttribute { TYPE, ID };

// Attributes of "*/preset".
inline constexpr char kPresetTypeAttribute[] = "type";
inline constexpr char kPresetIdAttribute[] = "id";
inline constexpr NameEntry<PresetAttribute> kPresetAttributes[] = {
    {kPresetTypeAttribute, PresetAttribute::TYPE},
    {kPresetIdAttribute, PresetAttribute::ID},
};

// The inner wrapper of a preset's band rows, "*/preset/<kind>/bands".
inline constexpr char kPresetBandsElement[] = "bands";

// Attributes of an IEQ band row, "*/preset/ieq/bands/band_ieq". Values of one
// attribute are gathered across rows, and stored in this order.
inline constexpr NameEntry<Parameter> kIeqBandAttributes[] = {
    {kBandFrequencyAttribute, IEQ_FREQUENCY},
    {"target", IEQ_TARGET},
};

// Attributes of a GEQ band row, "*/preset/geq/bands/band_geq"; the reader
// takes every element there as a row.
inline constexpr NameEntry<Parameter> kGeqBandAttributes[] = {
    {kBandFrequencyAttribute, GEQ_FREQUENCY},
    {"gain", GEQ_GAIN},
};

enum class PresetKind { IEQ, GEQ };

struct PresetLayout {
    PresetKind kind;
    // The outer wrapper, "*/preset/<wrapperElement>".
    const char* wrapperElement;
    // The name of a band row.
    const char* rowElement;
    // True: every row must have that name, and the first element with another
    // name ends the rows. False: every element is a row.
    bool rowNameRequired;
    NameTable<Parameter> rowAttributes;
};

// Values of the "type" attribute of "*/preset"; any other type creates nothing.
inline constexpr NameEntry<PresetLayout> kPresetTypes[] = {
    {"ieq", {PresetKind::IEQ, "ieq", "band_ieq", true, kIeqBandAttributes}},
    {"geq", {PresetKind::GEQ, "geq", "band_geq", false, kGeqBandAttributes}},
};

// Words searched for, in this order, anywhere in the "id" of an IEQ preset;
// the first one found decides, and an id with none of them is balanced.
inline constexpr NameEntry<PresetType> kIeqPresetIdWords[] = {
    {"detailed", PRESET_TYPE_DETAILED},
    {"balanced", PRESET_TYPE_BALANCED},
    {"warm", PRESET_TYPE_WARM},
    {"off", PRESET_TYPE_OFF},
};
inline constexpr PresetType kIeqPresetIdDefault = PRESET_TYPE_BALANCED;

// ---- Profiles ----

enum class ProfileAttribute { ID, NAME };

// Attributes of "*/profile".
inline constexpr NameEntry<ProfileAttribute> kProfileAttributes[] = {
    {"id", ProfileAttribute::ID},
    {"name", ProfileAttribute::NAME},
};

// The parameter container, the 2nd child node of "*/profile".
inline constexpr char kProfileSettingsElement[] = "settings";

// The preset reference, the 4th child node of "*/profile"; only its first
// attribute is read, and only under this name.
inline constexpr char kIncludeElement[] = "include";
inline constexpr char kIncludePresetAttribute[] = "preset";

// Words searched for, in this order, anywhere in the "preset" of an include;
// the first one found decides. "off" beats every other word, and "balanced" is
// tested before "detailed". A name with none of them is logged and read as off.
inline constexpr NameEntry<PresetType> kIncludePresetWords[] = {
    {"off", PRESET_TYPE_OFF},
    {"balanced", PRESET_TYPE_BALANCED},
    {"warm", PRESET_TYPE_WARM},
    {"detailed", PRESET_TYPE_DETAILED},
};

// How a parameter element of a profile or a profile endpoint gives its values.
enum class ValueShape {
    SINGLE,        // one number or truth word, in the first attribute "value"
    ROW,           // comma-separated numbers in the first attribute, as read
    NONEMPTY_ROW,  // as ROW, but a row without numbers is stored as the one value 0
};

struct ElementValue {
    Parameter parameter;
    ValueShape shape;
};

// Children of "*/profile/settings" besides kEndpointTypeElement.
inline constexpr NameEntry<ElementValue> kProfileElements[] = {
    {"drc-metadata", {CUSTOM_DRC_METADATA, ValueShape::NONEMPTY_ROW}},
    {"volume-modeler-enable", {VOLUME_MODELER_ENABLE, ValueShape::SINGLE}},
    {"mi-ieq-steering-enable", {MI_IEQ_STEERING_ENABLE, ValueShape::SINGLE}},
    {"reverb-suppression-enable", {REVERB_SUPPRESSION_ENABLE, ValueShape::SINGLE}},
    {"reverb-suppression-amount", {REVERB_SUPPRESSION_AMOUNT, ValueShape::SINGLE}},
    {"mi-qv-leveler-steering-enable", {MI_QV_LEVELER_STEERING_ENABLE, ValueShape::SINGLE}},
    {"mi-dialog-enhancer-steering-enable", {MI_DIALOG_ENHANCER_STEERING_ENABLE, ValueShape::SINGLE}},
    {"mi-surround-compressor-steering-enable",
     {MI_SURROUND_COMPRESSOR_STEERING_ENABLE, ValueShape::SINGLE}},
    {"mi-adaptive-virtualizer-steering-enable",
     {MI_ADAPTIVE_VIRTUALIZER_STEERING_ENABLE, ValueShape::SINGLE}},
    {"ieq-enable", {IEQ_ENABLE, ValueShape::SINGLE}},
    {"ieq-amount", {IEQ_AMOUNT, ValueShape::SINGLE}},
};

// Children of "*/profile/settings/endpoint_type". The file calls virtual_bass_enable
// "virtual-bass-process-enable"; the file's spelling is the one read.
inline constexpr NameEntry<ElementValue> kProfileEndpointElements[] = {
    {"peak-value", {PEAK_VALUE, ValueShape::SINGLE}},
    {"system-gain", {SYSTEM_GAIN, ValueShape::SINGLE}},
    {"volmax-boost", {VOLMAX_BOOST, ValueShape::SINGLE}},
    {"surround-boost", {SURROUND_BOOST, ValueShape::SINGLE}},
    {"calibration-boost", {CALIBRATION_BOOST, ValueShape::SINGLE}},
    {"virtualizer-enable", {VIRTUALIZER_ENABLE, ValueShape::SINGLE}},
    {"bass-enhancer-enable", {BASS_ENHANCER_ENABLE, ValueShape::SINGLE}},
    {"bass-mbdrc-enable", {BASS_MBDRC_ENABLE, ValueShape::SINGLE}},
    {"volume-leveler-enable", {VOLUME_LEVELER_ENABLE, ValueShape::SINGLE}},
    {"volume-leveler-amount", {VOLUME_LEVELER_AMOUNT, ValueShape::SINGLE}},
    {"volume-leveler-in-target", {VOLUME_LEVELER_IN_TARGET, ValueShape::SINGLE}},
    {"volume-leveler-out-target", {VOLUME_LEVELER_OUT_TARGET, ValueShape::SINGLE}},
    {"dialog-enhancer-enable", {DIALOG_ENHANCER_ENABLE, ValueShape::SINGLE}},
    {"dialog-enhancer-amount", {DIALOG_ENHANCER_AMOUNT, ValueShape::SINGLE}},
    {"dialog-enhancer-ducking", {DIALOG_ENHANCER_DUCKING, ValueShape::SINGLE}},
    {"surround-decoder-enable", {SURROUND_DECODER_ENABLE, ValueShape::SINGLE}},
    {"surround-decoder-diffuse-relocating-to-front-amount",
     {SURROUND_DECODER_DIFFUSE_RELOCATING_TO_FRONT_AMOUNT, ValueShape::SINGLE}},
    {"graphic-equalizer-enable", {GRAPHIC_EQUALIZER_ENABLE, ValueShape::SINGLE}},
    {"headphone-virtualizer-mode", {HEADPHONE_VIRTUALIZER_MODE, ValueShape::SINGLE}},
    {"headphone-virtualizer-steerer-source-distance",
     {HEADPHONE_VIRTUALIZER_STEERER_SOURCE_DISTANCE, ValueShape::SINGLE}},
    {"headtracking-enable", {HEADTRACKING_ENABLE, ValueShape::SINGLE}},
    {"speaker-virtualizer-mode", {SPEAKER_VIRTUALIZER_MODE, ValueShape::SINGLE}},
    {"virtual-bass-process-enable", {VIRTUAL_BASS_ENABLE, ValueShape::SINGLE}},
    {"mi-virtualizer-binaural-steering-enable",
     {MI_VIRTUALIZER_BINAURAL_STEERING_ENABLE, ValueShape::SINGLE}},
    {"advanced-headphone-virtualizer-lr-angle",
     {ADVANCED_HEADPHONE_VIRTUALIZER_LR_ANGLE, ValueShape::SINGLE}},
    {"advanced-speaker-virtualizer-start-bin",
     {ADVANCED_SPEAKER_VIRTUALIZER_START_BIN, ValueShape::SINGLE}},
    {"advanced-speaker-virtualizer-rendering-config",
     {ADVANCED_SPEAKER_VIRTUALIZER_RENDERING_CONFIG, ValueShape::ROW}},
    {"advanced-headphone-virtualizer-rendering-config",
     {ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG, ValueShape::ROW}},
    {"advanced-headphone-virtualizer-rendering-config-for-living-room",
     {ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_LIVING_ROOM, ValueShape::ROW}},
    {"advanced-headphone-virtualizer-rendering-config-for-concert-hall",
     {ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_CONCERT_HALL, ValueShape::ROW}},
};

// ---- Tunings ----

enum class TuningAttribute { NAME, ENDPOINT_TYPE, MONO_DEVICE };

// The name of the tuning that serves every endpoint that profiles use and
// that has no tuning of its own name: it is sent with the general array. A
// store also lists it for an endpoint without tunings of its own.
inline constexpr char kDefaultTuningName[] = "default";

// Attributes of "*/tuning" that describe the tuning. "endpoint_type" holds an
// endpoint name (kEndpointNames); "mono_device" is mono only when exactly "true".
inline constexpr char kMonoDeviceAttribute[] = "mono_device";
inline constexpr NameEntry<TuningAttribute> kTuningAttributes[] = {
    {"name", TuningAttribute::NAME},
    {"endpoint_type", TuningAttribute::ENDPOINT_TYPE},
    {kMonoDeviceAttribute, TuningAttribute::MONO_DEVICE},
};

// Attributes of "*/tuning" that carry values: every occurrence appends one
// number, and the list is stored even when the file gave none.
inline constexpr NameEntry<Parameter> kTuningListAttributes[] = {
    {"orientation", ORIENTATION},
    {"output_channels", OUTPUT_CHANNELS},
};

// Children of "*/tuning" that bind a device to the tuning; they come before
// the data element, the first child element with any other name.
inline constexpr char kDeviceIdElement[] = "device_id";
// The data element of a tuning, "*/tuning/data".
inline constexpr char kTuningDataElement[] = "data";
// A row of "*/tuning/data/<band table>".
inline constexpr char kBandRowElement[] = "band";

enum class DeviceIdAttribute { ID, ENDPOINT_PORT };

// Attributes of "*/tuning/device_id".
inline constexpr NameEntry<DeviceIdAttribute> kDeviceIdAttributes[] = {
    {"id", DeviceIdAttribute::ID},
    {"endpoint_port", DeviceIdAttribute::ENDPOINT_PORT},
};

// Children of "*/tuning/data" that hold one value.
inline constexpr NameEntry<Parameter> kTuningValueElements[] = {
    {"height-filter-mode", HEIGHT_FILTER_MODE},
    {"bass-enhancer-boost", BASS_ENHANCER_BOOST},
    {"bass-enhancer-width", BASS_ENHANCER_WIDTH},
    {"bass-enhancer-cutoff-frequency", BASS_ENHANCER_CUTOFF_FREQUENCY},
    {"bass-extraction-enable", BASS_EXTRACTION_ENABLE},
    {"bass-extraction-cutoff-frequency", BASS_EXTRACTION_CUTOFF_FREQUENCY},
    {"regulator-enable", REGULATOR_ENABLE},
    {"regulator-overdrive", REGULATOR_OVERDRIVE},
    {"regulator-distortion-slope", REGULATOR_DISTORTION_SLOPE},
    {"regulator-timbre-preservation", REGULATOR_TIMBRE_PRESERVATION},
    {"regulator-speaker-dist-enable", REGULATOR_SPEAKER_DIST_ENABLE},
    {"regulator-sibilance-suppress-enable", REGULATOR_SIBILANCE_SUPPRESS_ENABLE},
    {"virtual-bass-mode", VIRTUAL_BASS_MODE},
    {"virtual-bass-slope-gain", VIRTUAL_BASS_SLOPE_GAIN},
    {"virtual-bass-overall-gain", VIRTUAL_BASS_OVERALL_GAIN},
    {"virtualizer-front-speaker-angle", VIRTUALIZER_FRONT_SPEAKER_ANGLE},
    {"virtualizer-height-speaker-angle", VIRTUALIZER_HEIGHT_SPEAKER_ANGLE},
    {"virtualizer-surround-speaker-angle", VIRTUALIZER_SURROUND_SPEAKER_ANGLE},
    {"volume-leveler-compressor-enable", VOLUME_LEVELER_COMPRESSOR_ENABLE},
    {"volume-modeler-calibration", VOLUME_MODELER_CALIBRATION},
    {"audio-optimizer-enable", AUDIO_OPTIMIZER_ENABLE},
    {"complex-equalizer-enable", COMPLEX_EQUALIZER_ENABLE},
};

// When a row element of a tuning is stored.
enum class RowStorage {
    AT_ONCE,  // when the element is met
    KEPT,     // when the data element ends; a later element of the name replaces it
};

struct TuningRow {
    Parameter parameter;
    RowStorage storage;
};

// Children of "*/tuning/data" that hold a comma-separated row in their first attribute.
inline constexpr NameEntry<TuningRow> kTuningRowElements[] = {
    {"regulator-stress-amount", {REGULATOR_STRESS_AMOUNT, RowStorage::AT_ONCE}},
    {"bass-mbdrc-tuning", {BASS_MBDRC_TUNING, RowStorage::AT_ONCE}},
    {"complex-equalizer-tuning-left", {COMPLEX_EQUALIZER_TUNING_LEFT, RowStorage::KEPT}},
    {"complex-equalizer-tuning-right", {COMPLEX_EQUALIZER_TUNING_RIGHT, RowStorage::KEPT}},
    {"complex-equalizer-tuning-left-surround",
     {COMPLEX_EQUALIZER_TUNING_LEFT_SURROUND, RowStorage::KEPT}},
    {"complex-equalizer-tuning-right-surround",
     {COMPLEX_EQUALIZER_TUNING_RIGHT_SURROUND, RowStorage::KEPT}},
    {"regulator-sibilance-suppress-amounts-left",
     {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT, RowStorage::KEPT}},
    {"regulator-sibilance-suppress-amounts-right",
     {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT, RowStorage::KEPT}},
    {"regulator-sibilance-suppress-amounts-left-surround",
     {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT_SURROUND, RowStorage::KEPT}},
    {"regulator-sibilance-suppress-amounts-right-surround",
     {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT_SURROUND, RowStorage::KEPT}},
};

// Attributes of "*/tuning/data/virtual-bass-mix-freqs", one value each.
inline constexpr NameEntry<Parameter> kVirtualBassMixFreqAttributes[] = {
    {"frequency_high", VIRTUAL_BASS_MIX_FREQ_HIGH},
    {"frequency_low", VIRTUAL_BASS_MIX_FREQ_LOW},
};

// Attributes of "*/tuning/data/virtual-bass-src-freqs", one value each.
inline constexpr NameEntry<Parameter> kVirtualBassSrcFreqAttributes[] = {
    {"frequency_high", VIRTUAL_BASS_SRC_FREQ_HIGH},
    {"frequency_low", VIRTUAL_BASS_SRC_FREQ_LOW},
};

// Children of "*/tuning/data" whose attributes each hold one value of their own.
inline constexpr NameEntry<NameTable<Parameter>> kTuningAttributeElements[] = {
    {"virtual-bass-mix-freqs", kVirtualBassMixFreqAttributes},
    {"virtual-bass-src-freqs", kVirtualBassSrcFreqAttributes},
};

// Children of "*/tuning/data" whose attributes, whatever their names, are the
// values of one list in document order.
inline constexpr NameEntry<Parameter> kTuningAttributeListElements[] = {
    {"virtual-bass-subgains", VIRTUAL_BASS_SUBGAINS},
};

// How a band row attribute reads. The file's numbers all read as string2int
// does; only the isolated-band flag is a truth word.
enum class BandValue {
    NUMBER,
    TRUE_WORD,  // 1 when exactly "true", else 0
};

struct BandColumn {
    Parameter parameter;
    BandValue value;
};

// Attributes of the rows of "*/tuning/data/audio-optimizer-bands".
inline constexpr NameEntry<BandColumn> kAudioOptimizerBandAttributes[] = {
    {kBandFrequencyAttribute, {AUDIO_OPTIMIZER_FREQUENCY, BandValue::NUMBER}},
    {"gain_left", {AUDIO_OPTIMIZER_GAIN_L, BandValue::NUMBER}},
    {"gain_right", {AUDIO_OPTIMIZER_GAIN_R, BandValue::NUMBER}},
    {"gain_left_surround", {AUDIO_OPTIMIZER_GAIN_LS, BandValue::NUMBER}},
    {"gain_right_surround", {AUDIO_OPTIMIZER_GAIN_RS, BandValue::NUMBER}},
};

// Attributes of the rows of "*/tuning/data/regulator-tuning".
inline constexpr NameEntry<BandColumn> kRegulatorBandAttributes[] = {
    {kBandFrequencyAttribute, {REGULATOR_FREQUENCY, BandValue::NUMBER}},
    {"threshold_low", {REGULATOR_THRESHOLD_LOW, BandValue::NUMBER}},
    {"threshold_high", {REGULATOR_THRESHOLD_HIGH, BandValue::NUMBER}},
    {"isolated_band", {REGULATOR_ISOLATED_BAND, BandValue::TRUE_WORD}},
};

// Children of "*/tuning/data" whose child elements are band rows. Each column
// gathers the rows of every element of the name and is stored when the data
// element ends, empty if no row gave it.
inline constexpr NameEntry<NameTable<BandColumn>> kTuningBandElements[] = {
    {"audio-optimizer-bands", kAudioOptimizerBandAttributes},
    {"regulator-tuning", kRegulatorBandAttributes},
};

// Child of "*/tuning/data" that holds the output mix matrices.
inline constexpr char kOutputModeElement[] = "output-mode";

// Children of "*/tuning/data/output-mode": each a matrix whose child elements are
// rows in their first attribute, flattened into one list.
inline constexpr char kMatrixRowElement[] = "row";
inline constexpr char kMatrixRowAttribute[] = "coefficients";
inline constexpr NameEntry<Parameter> kOutputModeMatrices[] = {
    {"mix_matrix", OUTPUT_MIX_MATRIX},
    {"advanced_mix_matrix", ADVANCED_OUTPUT_MIX_MATRIX},
};


}  // namespace ovela

#endif  // OVELA_TUNING_FILE_VOCABULARY_H
