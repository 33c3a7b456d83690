#ifndef OVELA_PARAMETER_H
#define OVELA_PARAMETER_H

#include <array>
#include <cstddef>
#include <set>
#include <type_traits>
#include <utility>

#include "KyrParameterId.h"

namespace ovela {

// The closed vocabulary of tuning parameters. The values follow the byte order
// of the print names except MI_QV_LEVELER_STEERING_ENABLE, which sits at 47 on
// purpose: values index kParameterNames and order every value map, so the
// numbering is part of the binary contract and must not be "fixed".
enum Parameter {
    ADVANCED_HEADPHONE_VIRTUALIZER_LR_ANGLE = 0,
    ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG = 1,
    ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_CONCERT_HALL = 2,
    ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_LIVING_ROOM = 3,
    ADVANCED_OUTPUT_MIX_MATRIX = 4,
    ADVANCED_SPEAKER_VIRTUALIZER_RENDERING_CONFIG = 5,
    ADVANCED_SPEAKER_VIRTUALIZER_START_BIN = 6,
    AUDIO_OPTIMIZER_ENABLE = 7,
    AUDIO_OPTIMIZER_FREQUENCY = 8,
    AUDIO_OPTIMIZER_GAIN_L = 9,
    AUDIO_OPTIMIZER_GAIN_LS = 10,
    AUDIO_OPTIMIZER_GAIN_R = 11,
    AUDIO_OPTIMIZER_GAIN_RS = 12,
    AUXILIARY_SYSTEM_GAIN = 13,
    AUXILIARY_SYSTEM_GAIN_ENABLE = 14,
    BASS_ENHANCER_BOOST = 15,
    BASS_ENHANCER_CUTOFF_FREQUENCY = 16,
    BASS_ENHANCER_ENABLE = 17,
    BASS_ENHANCER_WIDTH = 18,
    BASS_EXTRACTION_CUTOFF_FREQUENCY = 19,
    BASS_EXTRACTION_ENABLE = 20,
    BASS_MBDRC_ENABLE = 21,
    BASS_MBDRC_TUNING = 22,
    CALIBRATION_BOOST = 23,
    COMPLEX_EQUALIZER_ENABLE = 24,
    COMPLEX_EQUALIZER_TUNING_LEFT = 25,
    COMPLEX_EQUALIZER_TUNING_LEFT_SURROUND = 26,
    COMPLEX_EQUALIZER_TUNING_RIGHT = 27,
    COMPLEX_EQUALIZER_TUNING_RIGHT_SURROUND = 28,
    CUSTOM_DRC_METADATA = 29,
    DIALOG_ENHANCER_AMOUNT = 30,
    DIALOG_ENHANCER_DUCKING = 31,
    DIALOG_ENHANCER_ENABLE = 32,
    GEQ_FREQUENCY = 33,
    GEQ_GAIN = 34,
    GRAPHIC_EQUALIZER_ENABLE = 35,
    HEADPHONE_VIRTUALIZER_MODE = 36,
    HEADPHONE_VIRTUALIZER_STEERER_SOURCE_DISTANCE = 37,
    HEADTRACKING_ENABLE = 38,
    HEIGHT_FILTER_MODE = 39,
    IEQ_AMOUNT = 40,
    IEQ_ENABLE = 41,
    IEQ_FREQUENCY = 42,
    IEQ_ID = 43,
    IEQ_TARGET = 44,
    MI_ADAPTIVE_VIRTUALIZER_STEERING_ENABLE = 45,
    MI_DIALOG_ENHANCER_STEERING_ENABLE = 46,
    MI_QV_LEVELER_STEERING_ENABLE = 47,
    MI_IEQ_STEERING_ENABLE = 48,
    MI_SURROUND_COMPRESSOR_STEERING_ENABLE = 49,
    MI_VIRTUALIZER_BINAURAL_STEERING_ENABLE = 50,
    ORIENTATION = 51,
    OUTPUT_CHANNELS = 52,
    OUTPUT_MIX_MATRIX = 53,
    PEAK_VALUE = 54,
    REGULATOR_DISTORTION_SLOPE = 55,
    REGULATOR_ENABLE = 56,
    REGULATOR_FREQUENCY = 57,
    REGULATOR_ISOLATED_BAND = 58,
    REGULATOR_OVERDRIVE = 59,
    REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT = 60,
    REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT_SURROUND = 61,
    REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT = 62,
    REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT_SURROUND = 63,
    REGULATOR_SIBILANCE_SUPPRESS_ENABLE = 64,
    REGULATOR_SPEAKER_DIST_ENABLE = 65,
    REGULATOR_STRESS_AMOUNT = 66,
    REGULATOR_THRESHOLD_HIGH = 67,
    REGULATOR_THRESHOLD_LOW = 68,
    REGULATOR_TIMBRE_PRESERVATION = 69,
    REVERB_SUPPRESSION_AMOUNT = 70,
    REVERB_SUPPRESSION_ENABLE = 71,
    SPEAKER_VIRTUALIZER_MODE = 72,
    SURROUND_BOOST = 73,
    SURROUND_DECODER_DIFFUSE_RELOCATING_TO_FRONT_AMOUNT = 74,
    SURROUND_DECODER_ENABLE = 75,
    SYSTEM_GAIN = 76,
    VIRTUAL_BASS_ENABLE = 77,
    VIRTUAL_BASS_MIX_FREQ_HIGH = 78,
    VIRTUAL_BASS_MIX_FREQ_LOW = 79,
    VIRTUAL_BASS_MODE = 80,
    VIRTUAL_BASS_OVERALL_GAIN = 81,
    VIRTUAL_BASS_SLOPE_GAIN = 82,
    VIRTUAL_BASS_SRC_FREQ_HIGH = 83,
    VIRTUAL_BASS_SRC_FREQ_LOW = 84,
    VIRTUAL_BASS_SUBGAINS = 85,
    VIRTUALIZER_ENABLE = 86,
    VIRTUALIZER_FRONT_SPEAKER_ANGLE = 87,
    VIRTUALIZER_HEIGHT_SPEAKER_ANGLE = 88,
    VIRTUALIZER_SURROUND_SPEAKER_ANGLE = 89,
    VOLMAX_BOOST = 90,
    VOLUME_LEVELER_AMOUNT = 91,
    VOLUME_LEVELER_COMPRESSOR_ENABLE = 92,
    VOLUME_LEVELER_ENABLE = 93,
    VOLUME_LEVELER_IN_TARGET = 94,
    VOLUME_LEVELER_OUT_TARGET = 95,
    VOLUME_MODELER_CALIBRATION = 96,
    VOLUME_MODELER_ENABLE = 97,
};

constexpr size_t kNumParameters = 98;

// The kind of model entity whose set of valid parameters (kValidParams) holds
// a parameter; the sets are disjoint, and some parameters are in none.
enum class EntityClass {
    NONE,
    GENERAL,
    GENERAL_ENDPOINT,
    PROFILE,
    PROFILE_ENDPOINT,
    TUNING,
    IEQ_PRESET,
    GEQ_PRESET,
};

// No effect code: the effect receives the parameter only inside composite
// entries, or not at all.
constexpr KyrParameterId kNoCode = 0;

struct ParameterRow {
    Parameter parameter;
    const char* name;     // the print name
    KyrParameterId code;  // the effect parameter code of its entries, or kNoCode
    EntityClass validIn;
};

// One row per parameter, in value order: the one place where a parameter
// meets its print name, its effect code and the entity that may carry it.
// geq_frequency and geq_gain share "gebs" on purpose: the effect tells the two
// lists apart by their order.
inline constexpr ParameterRow kParameterRows[] = {
    {ADVANCED_HEADPHONE_VIRTUALIZER_LR_ANGLE, "advanced_headphone_virtualizer_lr_angle",
     kyrCode("hlra"), EntityClass::NONE},
    {ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG,
     "advanced_headphone_virtualizer_rendering_config", kyrCode("hvrc"), EntityClass::NONE},
    {ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_CONCERT_HALL,
     "advanced_headphone_virtualizer_rendering_config_for_concert_hall", kyrCode("vrch"),
     EntityClass::NONE},
    {ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_LIVING_ROOM,
     "advanced_headphone_virtualizer_rendering_config_for_living_room", kyrCode("vrcr"),
     EntityClass::NONE},
    {ADVANCED_OUTPUT_MIX_MATRIX, "advanced_output_mix_matrix", kNoCode, EntityClass::NONE},
    {ADVANCED_SPEAKER_VIRTUALIZER_RENDERING_CONFIG, "advanced_speaker_virtualizer_rendering_config",
     kyrCode("svrc"), EntityClass::NONE},
    {ADVANCED_SPEAKER_VIRTUALIZER_START_BIN, "advanced_speaker_virtualizer_start_bin",
     kyrCode("avsb"), EntityClass::NONE},
    {AUDIO_OPTIMIZER_ENABLE, "audio_optimizer_enable", kyrCode("aoon"), EntityClass::TUNING},
    {AUDIO_OPTIMIZER_FREQUENCY, "audio_optimizer_frequency", kNoCode, EntityClass::TUNING},
    {AUDIO_OPTIMIZER_GAIN_L, "audio_optimizer_gain_l", kNoCode, EntityClass::TUNING},
    {AUDIO_OPTIMIZER_GAIN_LS, "audio_optimizer_gain_ls", kNoCode, EntityClass::TUNING},
    {AUDIO_OPTIMIZER_GAIN_R, "audio_optimizer_gain_r", kNoCode, EntityClass::TUNING},
    {AUDIO_OPTIMIZER_GAIN_RS, "audio_optimizer_gain_rs", kNoCode, EntityClass::TUNING},
    {AUXILIARY_SYSTEM_GAIN, "auxiliary_system_gain", kyrCode("avol"), EntityClass::GENERAL_ENDPOINT},
    {AUXILIARY_SYSTEM_GAIN_ENABLE, "auxiliary_system_gain_enable", kyrCode("avon"),
     EntityClass::GENERAL},
    {BASS_ENHANCER_BOOST, "bass_enhancer_boost", kyrCode("beb"), EntityClass::TUNING},
    {BASS_ENHANCER_CUTOFF_FREQUENCY, "bass_enhancer_cutoff_frequency", kyrCode("becf"),
     EntityClass::TUNING},
    {BASS_ENHANCER_ENABLE, "bass_enhancer_enable", kyrCode("beon"), EntityClass::PROFILE_ENDPOINT},
    {BASS_ENHANCER_WIDTH, "bass_enhancer_width", kyrCode("bew"), EntityClass::TUNING},
    {BASS_EXTRACTION_CUTOFF_FREQUENCY, "bass_extraction_cutoff_frequency", kyrCode("bexf"),
     EntityClass::TUNING},
    {BASS_EXTRACTION_ENABLE, "bass_extraction_enable", kyrCode("bexe"), EntityClass::TUNING},
    {BASS_MBDRC_ENABLE, "bass_mbdrc_enable", kyrCode("bmde"), EntityClass::NONE},
    {BASS_MBDRC_TUNING, "bass_mbdrc_tuning", kyrCode("bmdt"), EntityClass::NONE},
    {CALIBRATION_BOOST, "calibration_boost", kyrCode("plb"), EntityClass::PROFILE_ENDPOINT},
    {COMPLEX_EQUALIZER_ENABLE, "complex_equalizer_enable", kyrCode("ceon"), EntityClass::TUNING},
    {COMPLEX_EQUALIZER_TUNING_LEFT, "complex_equalizer_tuning_left", kNoCode, EntityClass::TUNING},
    {COMPLEX_EQUALIZER_TUNING_LEFT_SURROUND, "complex_equalizer_tuning_left_surround", kNoCode,
     EntityClass::TUNING},
    {COMPLEX_EQUALIZER_TUNING_RIGHT, "complex_equalizer_tuning_right", kNoCode, EntityClass::TUNING},
    {COMPLEX_EQUALIZER_TUNING_RIGHT_SURROUND, "complex_equalizer_tuning_right_surround", kNoCode,
     EntityClass::TUNING},
    {CUSTOM_DRC_METADATA, "custom_drc_metadata", kyrCode("drcm"), EntityClass::PROFILE},
    {DIALOG_ENHANCER_AMOUNT, "dialog_enhancer_amount", kyrCode("dea"),
     EntityClass::PROFILE_ENDPOINT},
    {DIALOG_ENHANCER_DUCKING, "dialog_enhancer_ducking", kyrCode("ded"),
     EntityClass::PROFILE_ENDPOINT},
    {DIALOG_ENHANCER_ENABLE, "dialog_enhancer_enable", kyrCode("deon"),
     EntityClass::PROFILE_ENDPOINT},
    {GEQ_FREQUENCY, "geq_frequency", kyrCode("gebs"), EntityClass::GEQ_PRESET},
    {GEQ_GAIN, "geq_gain", kyrCode("gebs"), EntityClass::GEQ_PRESET},
    {GRAPHIC_EQUALIZER_ENABLE, "graphic_equalizer_enable", kyrCode("geon"),
     EntityClass::PROFILE_ENDPOINT},
    {HEADPHONE_VIRTUALIZER_MODE, "headphone_virtualizer_mode", kyrCode("hvm"), EntityClass::NONE},
    {HEADPHONE_VIRTUALIZER_STEERER_SOURCE_DISTANCE, "headphone_virtualizer_steerer_source_distance",
     kyrCode("vssd"), EntityClass::NONE},
    {HEADTRACKING_ENABLE, "headtracking_enable", kyrCode("hte"), EntityClass::NONE},
    {HEIGHT_FILTER_MODE, "height_filter_mode", kyrCode("dhfm"), EntityClass::TUNING},
    {IEQ_AMOUNT, "ieq_amount", kyrCode("iea"), EntityClass::PROFILE},
    {IEQ_ENABLE, "ieq_enable", kyrCode("ieon"), EntityClass::PROFILE},
    {IEQ_FREQUENCY, "ieq_frequency", kNoCode, EntityClass::IEQ_PRESET},
    {IEQ_ID, "ieq_id", kNoCode, EntityClass::IEQ_PRESET},
    {IEQ_TARGET, "ieq_target", kNoCode, EntityClass::IEQ_PRESET},
    {MI_ADAPTIVE_VIRTUALIZER_STEERING_ENABLE, "mi_adaptive_virtualizer_steering_enable",
     kyrCode("mave"), EntityClass::PROFILE},
    {MI_DIALOG_ENHANCER_STEERING_ENABLE, "mi_dialog_enhancer_steering_enable", kyrCode("mdee"),
     EntityClass::NONE},
    {MI_QV_LEVELER_STEERING_ENABLE, "mi_qv_leveler_steering_enable", kyrCode("mdle"),
     EntityClass::PROFILE},
    {MI_IEQ_STEERING_ENABLE, "mi_ieq_steering_enable", kyrCode("miee"), EntityClass::PROFILE},
    {MI_SURROUND_COMPRESSOR_STEERING_ENABLE, "mi_surround_compressor_steering_enable",
     kyrCode("msce"), EntityClass::PROFILE},
    {MI_VIRTUALIZER_BINAURAL_STEERING_ENABLE, "mi_virtualizer_binaural_steering_enable",
     kyrCode("mvbe"), EntityClass::PROFILE_ENDPOINT},
    {ORIENTATION, "orientation", kNoCode, EntityClass::TUNING},
    {OUTPUT_CHANNELS, "output_channels", kNoCode, EntityClass::TUNING},
    {OUTPUT_MIX_MATRIX, "output_mix_matrix", kNoCode, EntityClass::TUNING},
    {PEAK_VALUE, "peak_value", kyrCode("dplp"), EntityClass::PROFILE_ENDPOINT},
    {REGULATOR_DISTORTION_SLOPE, "regulator_distortion_slope", kyrCode("ards"), EntityClass::TUNING},
    {REGULATOR_ENABLE, "regulator_enable", kyrCode("aron"), EntityClass::TUNING},
    {REGULATOR_FREQUENCY, "regulator_frequency", kNoCode, EntityClass::TUNING},
    {REGULATOR_ISOLATED_BAND, "regulator_isolated_band", kNoCode, EntityClass::TUNING},
    {REGULATOR_OVERDRIVE, "regulator_overdrive", kyrCode("arod"), EntityClass::TUNING},
    {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT, "regulator_sibilance_suppress_amounts_left",
     kNoCode, EntityClass::TUNING},
    {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT_SURROUND,
     "regulator_sibilance_suppress_amounts_left_surround", kNoCode, EntityClass::TUNING},
    {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT, "regulator_sibilance_suppress_amounts_right",
     kNoCode, EntityClass::TUNING},
    {REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT_SURROUND,
     "regulator_sibilance_suppress_amounts_right_surround", kNoCode, EntityClass::TUNING},
    {REGULATOR_SIBILANCE_SUPPRESS_ENABLE, "regulator_sibilance_suppress_enable", kyrCode("rsse"),
     EntityClass::TUNING},
    {REGULATOR_SPEAKER_DIST_ENABLE, "regulator_speaker_dist_enable", kyrCode("arde"),
     EntityClass::TUNING},
    {REGULATOR_STRESS_AMOUNT, "regulator_stress_amount", kyrCode("arsa"), EntityClass::TUNING},
    {REGULATOR_THRESHOLD_HIGH, "regulator_threshold_high", kNoCode, EntityClass::TUNING},
    {REGULATOR_THRESHOLD_LOW, "regulator_threshold_low", kNoCode, EntityClass::TUNING},
    {REGULATOR_TIMBRE_PRESERVATION, "regulator_timbre_preservation", kyrCode("artp"),
     EntityClass::TUNING},
    {REVERB_SUPPRESSION_AMOUNT, "reverb_suppression_amount", kyrCode("rvsa"), EntityClass::NONE},
    {REVERB_SUPPRESSION_ENABLE, "reverb_suppression_enable", kyrCode("rvse"), EntityClass::NONE},
    {SPEAKER_VIRTUALIZER_MODE, "speaker_virtualizer_mode", kyrCode("svm"), EntityClass::NONE},
    {SURROUND_BOOST, "surround_boost", kyrCode("dsb"), EntityClass::PROFILE_ENDPOINT},
    {SURROUND_DECODER_DIFFUSE_RELOCATING_TO_FRONT_AMOUNT,
     "surround_decoder_diffuse_relocating_to_front_amount", kyrCode("sdfa"), EntityClass::NONE},
    {SURROUND_DECODER_ENABLE, "surround_decoder_enable", kyrCode("ngon"),
     EntityClass::PROFILE_ENDPOINT},
    {SYSTEM_GAIN, "system_gain", kyrCode("vol"), EntityClass::NONE},
    {VIRTUAL_BASS_ENABLE, "virtual_bass_enable", kyrCode("vbon"), EntityClass::PROFILE_ENDPOINT},
    {VIRTUAL_BASS_MIX_FREQ_HIGH, "virtual_bass_mix_freq_high", kNoCode, EntityClass::TUNING},
    {VIRTUAL_BASS_MIX_FREQ_LOW, "virtual_bass_mix_freq_low", kNoCode, EntityClass::TUNING},
    {VIRTUAL_BASS_MODE, "virtual_bass_mode", kyrCode("vbm"), EntityClass::TUNING},
    {VIRTUAL_BASS_OVERALL_GAIN, "virtual_bass_overall_gain", kyrCode("vbog"), EntityClass::TUNING},
    {VIRTUAL_BASS_SLOPE_GAIN, "virtual_bass_slope_gain", kyrCode("vbsg"), EntityClass::TUNING},
    {VIRTUAL_BASS_SRC_FREQ_HIGH, "virtual_bass_src_freq_high", kNoCode, EntityClass::TUNING},
    {VIRTUAL_BASS_SRC_FREQ_LOW, "virtual_bass_src_freq_low", kNoCode, EntityClass::TUNING},
    {VIRTUAL_BASS_SUBGAINS, "virtual_bass_subgains", kyrCode("vbhg"), EntityClass::TUNING},
    {VIRTUALIZER_ENABLE, "virtualizer_enable", kNoCode, EntityClass::PROFILE_ENDPOINT},
    {VIRTUALIZER_FRONT_SPEAKER_ANGLE, "virtualizer_front_speaker_angle", kyrCode("dfsa"),
     EntityClass::TUNING},
    {VIRTUALIZER_HEIGHT_SPEAKER_ANGLE, "virtualizer_height_speaker_angle", kyrCode("dhsa"),
     EntityClass::TUNING},
    {VIRTUALIZER_SURROUND_SPEAKER_ANGLE, "virtualizer_surround_speaker_angle", kyrCode("dsa"),
     EntityClass::TUNING},
    {VOLMAX_BOOST, "volmax_boost", kyrCode("vmb"), EntityClass::PROFILE_ENDPOINT},
    {VOLUME_LEVELER_AMOUNT, "volume_leveler_amount", kyrCode("qvla"), EntityClass::PROFILE_ENDPOINT},
    {VOLUME_LEVELER_COMPRESSOR_ENABLE, "volume_leveler_compressor_enable", kyrCode("qvlc"),
     EntityClass::TUNING},
    {VOLUME_LEVELER_ENABLE, "volume_leveler_enable", kyrCode("qvle"), EntityClass::PROFILE_ENDPOINT},
    {VOLUME_LEVELER_IN_TARGET, "volume_leveler_in_target", kyrCode("qvli"),
     EntityClass::PROFILE_ENDPOINT},
    {VOLUME_LEVELER_OUT_TARGET, "volume_leveler_out_target", kyrCode("qvlo"),
     EntityClass::PROFILE_ENDPOINT},
    {VOLUME_MODELER_CALIBRATION, "volume_modeler_calibration", kyrCode("qvmc"), EntityClass::TUNING},
    {VOLUME_MODELER_ENABLE, "volume_modeler_enable", kyrCode("qvme"), EntityClass::PROFILE},
};

namespace parameter_rows {

constexpr bool inValueOrder() {
    for (size_t i = 0; i < std::size(kParameterRows); ++i) {
        if (kParameterRows[i].parameter != static_cast<Parameter>(i)) {
            return false;
        }
    }
    return std::size(kParameterRows) == kNumParameters;
}
static_assert(inValueOrder(), "kParameterRows holds every parameter once, in value order");

template <typename Field, size_t... I>
constexpr auto column(Field field, std::index_sequence<I...>) {
    using Value = std::remove_cv_t<std::remove_reference_t<decltype(kParameterRows[0].*field)>>;
    return std::array<Value, kNumParameters>{kParameterRows[I].*field...};
}

}  // namespace parameter_rows

// Print name of each parameter, indexed by its value.
inline constexpr std::array<const char*, kNumParameters> kParameterNames =
    parameter_rows::column(&ParameterRow::name, std::make_index_sequence<kNumParameters>());

// Effect parameter code of each parameter, indexed by its value; kNoCode for
// the parameters that the effect only receives inside composite entries.
inline constexpr std::array<KyrParameterId, kNumParameters> kParameterCodes =
    parameter_rows::column(&ParameterRow::code, std::make_index_sequence<kNumParameters>());

// The parameters valid in `entity`, in value order: a class's kValidParams.
std::set<Parameter> validParamsOf(EntityClass entity);

}  // namespace ovela

#endif  // OVELA_PARAMETER_H
