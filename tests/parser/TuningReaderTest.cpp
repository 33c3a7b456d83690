#include <gtest/gtest.h>

#include "LogCapture.h"
#include "ParserTestSupport.h"
#include "TuningFileParser.h"

namespace ovela {
namespace {

using testing::loadText;
using testing::LogCapture;
using testing::textsOf;
using testing::tuningFile;

using Strings = std::vector<std::string>;

// What a tuning whose data element holds nothing prints after its header: the
// seventeen held lists and the two attribute lists, all empty.
const std::string kEmptyTuningLists =
    "audio_optimizer_frequency=\naudio_optimizer_gain_l=\naudio_optimizer_gain_ls=\n"
    "audio_optimizer_gain_r=\naudio_optimizer_gain_rs=\ncomplex_equalizer_tuning_left=\n"
    "complex_equalizer_tuning_left_surround=\ncomplex_equalizer_tuning_right=\n"
    "complex_equalizer_tuning_right_surround=\norientation=\noutput_channels=\n"
    "regulator_frequency=\nregulator_isolated_band=\n"
    "regulator_sibilance_suppress_amounts_left=\n"
    "regulator_sibilance_suppress_amounts_left_surround=\n"
    "regulator_sibilance_suppress_amounts_right=\n"
    "regulator_sibilance_suppress_amounts_right_surround=\n"
    "regulator_threshold_high=\nregulator_threshold_low=\n";

TEST(TuningReaderTest, TuningReadsEveryKindOfDataElement) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(
    <tuning name="speaker" endpoint_type="headphone" mono_device="true" orientation="90" output_channels="2">
        <device_id id="internal_speaker" endpoint_port="spk0"/>
        <data>
            <regulator-enable value="true"/> <bass-enhancer-boost value="192"/>
            <regulator-stress-amount data="96,80"/> <unknown-element value="5"/>
            <virtual-bass-mix-freqs frequency_low="100" frequency_high="250" other="7"/>
            <virtual-bass-subgains a="-80" b="x" c="-144"/>
            <output-mode>
                <mix_matrix> <row coefficients="16384,0"/> </mix_matrix>
                <advanced_mix_matrix> <row coefficients="1,2,3"/> </advanced_mix_matrix>
            </output-mode>
        </data>
    </tuning>)")),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getTunings()),
              Strings{"id=-1\nname=speaker\nendpoint=headphone\nmono=true\nreadonly=true\n"
                      "advanced_output_mix_matrix=1,2,3,\n"
                      "audio_optimizer_frequency=\naudio_optimizer_gain_l=\n"
                      "audio_optimizer_gain_ls=\naudio_optimizer_gain_r=\n"
                      "audio_optimizer_gain_rs=\nbass_enhancer_boost=192,\n"
                      "complex_equalizer_tuning_left=\ncomplex_equalizer_tuning_left_surround=\n"
                      "complex_equalizer_tuning_right=\n"
                      "complex_equalizer_tuning_right_surround=\norientation=90,\n"
                      "output_channels=2,\noutput_mix_matrix=16384,0,\nregulator_enable=1,\n"
                      "regulator_frequency=\nregulator_isolated_band=\n"
                      "regulator_sibilance_suppress_amounts_left=\n"
                      "regulator_sibilance_suppress_amounts_left_surround=\n"
                      "regulator_sibilance_suppress_amounts_right=\n"
                      "regulator_sibilance_suppress_amounts_right_surround=\n"
                      "regulator_stress_amount=96,80,\nregulator_threshold_high=\n"
                      "regulator_threshold_low=\nvirtual_bass_mix_freq_high=250,\n"
                      "virtual_bass_mix_freq_low=100,\nvirtual_bass_subgains=-80,0,-144,\n"});
    EXPECT_EQ(textsOf(parser.getDeviceData()->getDeviceTunings()),
              Strings{"id=-1\ndevice=internal_speaker\nport=spk0\ntuning=speaker"});
}

TEST(TuningReaderTest, BandRowsAppendAcrossElementsAndKeptRowsKeepTheLast) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(<tuning name="t"> <data>
        <regulator-tuning>
            <band frequency="100" threshold_low="-192" threshold_high="-96" isolated_band="true"/>
            <band isolated_band="TRUE" frequency="200"/>
        </regulator-tuning>
        <complex-equalizer-tuning-left data="1,2"/>
        <regulator-tuning> <band frequency=" 300" threshold_high="x" q="1"/> </regulator-tuning>
        <audio-optimizer-bands> <band frequency="50" gain_left="1" gain_right="2"
            gain_left_surround="3" gain_right_surround="4"/> </audio-optimizer-bands>
        <complex-equalizer-tuning-left data="7,8,9"/>
        <regulator-sibilance-suppress-amounts-left data="0,48,96,96,48"/>
    </data> </tuning>)")),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getTunings()),
              Strings{"id=-1\nname=t\nendpoint=speaker\nmono=false\nreadonly=true\n"
                      "audio_optimizer_frequency=50,\naudio_optimizer_gain_l=1,\n"
                      "audio_optimizer_gain_ls=3,\naudio_optimizer_gain_r=2,\n"
                      "audio_optimizer_gain_rs=4,\ncomplex_equalizer_tuning_left=7,8,9,\n"
                      "complex_equalizer_tuning_left_surround=\n"
                      "complex_equalizer_tuning_right=\n"
                      "complex_equalizer_tuning_right_surround=\norientation=\n"
                      "output_channels=\nregulator_frequency=100,200,300,\n"
                      "regulator_isolated_band=1,0,\n"
                      "regulator_sibilance_suppress_amounts_left=0,48,96,96,48,\n"
                      "regulator_sibilance_suppress_amounts_left_surround=\n"
                      "regulator_sibilance_suppress_amounts_right=\n"
                      "regulator_sibilance_suppress_amounts_right_surround=\n"
                      "regulator_threshold_high=-96,0,\nregulator_threshold_low=-192,\n"});
}

TEST(TuningReaderTest, EndpointFallsBackToSpeakerAndMonoNeedsExactlyTrue) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(
        <tuning name="a" endpoint_type="Speaker" mono_device="TRUE"> <data> </data> </tuning>
        <tuning name="b" endpoint_type="remote_submix" mono_device="1"> <data/> </tuning>
        <tuning name="c" endpoint_type="nowhere" mono_device="true"> <data/> </tuning>)")),
              0);
    const std::string& lists = kEmptyTuningLists;
    EXPECT_EQ(textsOf(parser.getDeviceData()->getTunings()),
              (Strings{"id=-1\nname=a\nendpoint=speaker\nmono=false\nreadonly=true\n" + lists,
                       "id=-1\nname=b\nendpoint=remote_submix\nmono=false\nreadonly=true\n" + lists,
                       "id=-1\nname=c\nendpoint=speaker\nmono=true\nreadonly=true\n" + lists}));
}

TEST(TuningReaderTest, AttributesNamedAlikeInTwoNamespacesBothReadAsTheFirst) {
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(<tuning name="t"> <data>
        <virtual-bass-subgains xmlns:p="urn:p" g="1" p:g="5" p:h="7" h="9"/>
    </data> </tuning>)")),
              0);
    EXPECT_EQ(textsOf(parser.getDeviceData()->getTunings()),
              Strings{"id=-1\nname=t\nendpoint=speaker\nmono=false\nreadonly=true\n" +
                      kEmptyTuningLists + "virtual_bass_subgains=1,1,7,7,\n"});
}

TEST(TuningReaderTest, TuningWithoutDataIsDroppedButKeepsItsDeviceBindings) {
    LogCapture log;
    TuningFileParser parser;
    ASSERT_EQ(loadText(parser, tuningFile(R"(<tuning name="headphone" endpoint_type="headphone">
        <device_id endpoint_port="3.5mm"/> <!-- the data element was never written -->
        <device_id id="usb" endpoint_port="usb_headset"/>
    </tuning>
    <tuning name="empty"/>
    <tuning name="late"> <data> </data> <device_id id="hdmi" endpoint_port="out"/> </tuning>)")),
              0);
    EXPECT_EQ(log.messages("TuningFileParser", ANDROID_LOG_ERROR),
              Strings(2, "There is no <data> in Tuning section"));
    ASSERT_EQ(parser.getDeviceData()->getTunings().size(), 1u);
    EXPECT_EQ((*parser.getDeviceData()->getTunings().begin())->getName(), "late");
    EXPECT_EQ(textsOf(parser.getDeviceData()->getDeviceTunings()),
              (Strings{"id=-1\ndevice=\nport=3.5mm\ntuning=headphone",
                       "id=-1\ndevice=usb\nport=usb_headset\ntuning=headphone"}));
}

}  // namespace
}  // namespace ovela
