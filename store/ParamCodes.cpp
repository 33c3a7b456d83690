#include "ParamCodes.h"

namespace ovela {

namespace {

constexpr KyrParameterId kNoCode = 0;

}  // namespace

// geq_frequency and geq_gain share "gebs" on purpose: the effect tells the two
// lists apart by their order.
const KyrParameterId kParameterCodes[kNumParameters] = {
    kyrCode("hlra"),  // ADVANCED_HEADPHONE_VIRTUALIZER_LR_ANGLE
    kyrCode("hvrc"),  // ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG
    kyrCode("vrch"),  // ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_CONCERT_HALL
    kyrCode("vrcr"),  // ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_LIVING_ROOM
    kNoCode,          // ADVANCED_OUTPUT_MIX_MATRIX
    kyrCode("svrc"),  // ADVANCED_SPEAKER_VIRTUALIZER_RENDERING_CONFIG
    kyrCode("avsb"),  // ADVANCED_SPEAKER_VIRTUALIZER_START_BIN
    kyrCode("aoon"),  // AUDIO_OPTIMIZER_ENABLE
    kNoCode,          // AUDIO_OPTIMIZER_FREQUENCY
    kNoCode,          // AUDIO_OPTIMIZER_GAIN_L
    kNoCode,          // AUDIO_OPTIMIZER_GAIN_LS
    kNoCode,          // AUDIO_OPTIMIZER_GAIN_R
    kNoCode,          // AUDIO_OPTIMIZER_GAIN_RS
    kyrCode("avol"),  // AUXILIARY_SYSTEM_GAIN
    kyrCode("avon"),  // AUXILIARY_SYSTEM_GAIN_ENABLE
    kyrCode("beb"),   // BASS_ENHANCER_BOOST
    kyrCode("becf"),  // BASS_ENHANCER_CUTOFF_FREQUENCY
    kyrCode("beon"),  // BASS_ENHANCER_ENABLE
    kyrCode("bew"),   // BASS_ENHANCER_WIDTH
    kyrCode("bexf"),  // BASS_EXTRACTION_CUTOFF_FREQUENCY
    kyrCode("bexe"),  // BASS_EXTRACTION_ENABLE
    kyrCode("bmde"),  // BASS_MBDRC_ENABLE
    kyrCode("bmdt"),  // BASS_MBDRC_TUNING
    kyrCode("plb"),   // CALIBRATION_BOOST
    kyrCode("ceon"),  // COMPLEX_EQUALIZER_ENABLE
    kNoCode,          // COMPLEX_EQUALIZER_TUNING_LEFT
    kNoCode,          // COMPLEX_EQUALIZER_TUNING_LEFT_SURROUND
    kNoCode,          // COMPLEX_EQUALIZER_TUNING_RIGHT
    kNoCode,          // COMPLEX_EQUALIZER_TUNING_RIGHT_SURROUND
    kyrCode("drcm"),  // CUSTOM_DRC_METADATA
    kyrCode("dea"),   // DIALOG_ENHANCER_AMOUNT
    kyrCode("ded"),   // DIALOG_ENHANCER_DUCKING
    kyrCode("deon"),  // DIALOG_ENHANCER_ENABLE
    kyrCode("gebs"),  // GEQ_FREQUENCY
    kyrCode("gebs"),  // GEQ_GAIN
    kyrCode("geon"),  // GRAPHIC_EQUALIZER_ENABLE
    kyrCode("hvm"),   // HEADPHONE_VIRTUALIZER_MODE
    kyrCode("vssd"),  // HEADPHONE_VIRTUALIZER_STEERER_SOURCE_DISTANCE
    kyrCode("hte"),   // HEADTRACKING_ENABLE
    kyrCode("dhfm"),  // HEIGHT_FILTER_MODE
    kyrCode("iea"),   // IEQ_AMOUNT
    kyrCode("ieon"),  // IEQ_ENABLE
    kNoCode,          // IEQ_FREQUENCY
    kNoCode,          // IEQ_ID
    kNoCode,          // IEQ_TARGET
    kyrCode("mave"),  // MI_ADAPTIVE_VIRTUALIZER_STEERING_ENABLE
    kyrCode("mdee"),  // MI_DIALOG_ENHANCER_STEERING_ENABLE
    kyrCode("mdle"),  // MI_QV_LEVELER_STEERING_ENABLE
    kyrCode("miee"),  // MI_IEQ_STEERING_ENABLE
    kyrCode("msce"),  // MI_SURROUND_COMPRESSOR_STEERING_ENABLE
    kyrCode("mvbe"),  // MI_VIRTUALIZER_BINAURAL_STEERING_ENABLE
    kNoCode,          // ORIENTATION
    kNoCode,          // OUTPUT_CHANNELS
    kNoCode,          // OUTPUT_MIX_MATRIX
    kyrCode("dplp"),  // PEAK_VALUE
    kyrCode("ards"),  // REGULATOR_DISTORTION_SLOPE
    kyrCode("aron"),  // REGULATOR_ENABLE
    kNoCode,          // REGULATOR_FREQUENCY
    kNoCode,          // REGULATOR_ISOLATED_BAND
    kyrCode("arod"),  // REGULATOR_OVERDRIVE
    kNoCode,          // REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT
    kNoCode,          // REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT_SURROUND
    kNoCode,          // REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT
    kNoCode,          // REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT_SURROUND
    kyrCode("rsse"),  // REGULATOR_SIBILANCE_SUPPRESS_ENABLE
    kyrCode("arde"),  // REGULATOR_SPEAKER_DIST_ENABLE
    kyrCode("arsa"),  // REGULATOR_STRESS_AMOUNT
    kNoCode,          // REGULATOR_THRESHOLD_HIGH
    kNoCode,          // REGULATOR_THRESHOLD_LOW
    kyrCode("artp"),  // REGULATOR_TIMBRE_PRESERVATION
    kyrCode("rvsa"),  // REVERB_SUPPRESSION_AMOUNT
    kyrCode("rvse"),  // REVERB_SUPPRESSION_ENABLE
    kyrCode("svm"),   // SPEAKER_VIRTUALIZER_MODE
    kyrCode("dsb"),   // SURROUND_BOOST
    kyrCode("sdfa"),  // SURROUND_DECODER_DIFFUSE_RELOCATING_TO_FRONT_AMOUNT
    kyrCode("ngon"),  // SURROUND_DECODER_ENABLE
    kyrCode("vol"),   // SYSTEM_GAIN
    kyrCode("vbon"),  // VIRTUAL_BASS_ENABLE
    kNoCode,          // VIRTUAL_BASS_MIX_FREQ_HIGH
    kNoCode,          // VIRTUAL_BASS_MIX_FREQ_LOW
    kyrCode("vbm"),   // VIRTUAL_BASS_MODE
    kyrCode("vbog"),  // VIRTUAL_BASS_OVERALL_GAIN
    kyrCode("vbsg"),  // VIRTUAL_BASS_SLOPE_GAIN
    kNoCode,          // VIRTUAL_BASS_SRC_FREQ_HIGH
    kNoCode,          // VIRTUAL_BASS_SRC_FREQ_LOW
    kyrCode("vbhg"),  // VIRTUAL_BASS_SUBGAINS
    kNoCode,          // VIRTUALIZER_ENABLE
    kyrCode("dfsa"),  // VIRTUALIZER_FRONT_SPEAKER_ANGLE
    kyrCode("dhsa"),  // VIRTUALIZER_HEIGHT_SPEAKER_ANGLE
    kyrCode("dsa"),   // VIRTUALIZER_SURROUND_SPEAKER_ANGLE
    kyrCode("vmb"),   // VOLMAX_BOOST
    kyrCode("qvla"),  // VOLUME_LEVELER_AMOUNT
    kyrCode("qvlc"),  // VOLUME_LEVELER_COMPRESSOR_ENABLE
    kyrCode("qvle"),  // VOLUME_LEVELER_ENABLE
    kyrCode("qvli"),  // VOLUME_LEVELER_IN_TARGET
    kyrCode("qvlo"),  // VOLUME_LEVELER_OUT_TARGET
    kyrCode("qvmc"),  // VOLUME_MODELER_CALIBRATION
    kyrCode("qvme"),  // VOLUME_MODELER_ENABLE
};

}  // namespace ovela
