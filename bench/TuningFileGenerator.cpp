#include "TuningFileGenerator.h"

#include <ovela/Endpoint.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string_view>

#include "TuningFileVocabulary.h"

namespace ovela::bench {

namespace {

constexpr int kProfiles = 10;
constexpr int kRenderingConfigValues = 8;
constexpr int kDrcMetadataValues = 17;
constexpr int kComplexEqualizerBands = 20;
constexpr int kSibilanceBands = 5;

const TuningFileShape kShapes[kTuningFileShapes] = {
    {"small", 14, 20},
    {"medium", 184, 20},
    {"large", 1960, 20},
};

// Numbers that look like a tuning's: a fixed sequence, spread over a range.
class Values {
  public:
    int next(int low, int high) {
        mState = mState * 6364136223846793005u + 1442695040888963407u;
        return low + static_cast<int>((mState >> 33) % static_cast<uint64_t>(high - low + 1));
    }

    std::string row(int count, int low, int high) {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += (i == 0 ? "" : ",") + std::to_string(next(low, high));
        }
        return text;
    }

  private:
    uint64_t mState = 0x5eed;
};

class Writer {
  public:
    void open(int depth, const std::string& element, const std::string& attributes = "") {
        line(depth, "<" + element + attributes + ">");
    }
    void close(int depth, const std::string& element) { line(depth, "</" + element + ">"); }
    void empty(int depth, const std::string& element, const std::string& attributes) {
        line(depth, "<" + element + attributes + "/>");
    }
    void line(int depth, const std::string& text) {
        mText.append(4 * static_cast<size_t>(depth), ' ');
        mText += text;
        mText += '\n';
    }
    std::string take() { return std::move(mText); }

  private:
    std::string mText;
};

std::string attribute(std::string_view name, const std::string& value) {
    return " " + std::string(name) + "=\"" + value + "\"";
}

bool startsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

// Whether an endpoint's setting belongs on that endpoint: the speaker
// virtualizer on the speaker, the headphone virtualizer on the outputs that
// carry headphones.
bool settingFits(std::string_view name, Endpoint endpoint) {
    const bool speakerOnly =
        startsWith(name, "speaker-virtualizer") || startsWith(name, "advanced-speaker");
    const bool headphoneOnly =
        startsWith(name, "headphone-virtualizer") || startsWith(name, "headtracking") ||
        startsWith(name, "advanced-headphone") || startsWith(name, "mi-virtualizer-binaural");
    if (speakerOnly) {
        return endpoint == ENDPOINT_SPEAKER;
    }
    if (headphoneOnly) {
        return endpoint == ENDPOINT_HEADPHONE || endpoint == ENDPOINT_BLUETOOTH ||
               endpoint == ENDPOINT_USB;
    }
    return true;
}

std::string settingValue(const ElementValue& value, Values& values) {
    switch (value.shape) {
        case ValueShape::SINGLE:
            return attribute(kValueAttribute, std::to_string(values.next(0, 12)));
        case ValueShape::ROW:
            return attribute("data", values.row(kRenderingConfigValues, 0, 32767));
        case ValueShape::NONEMPTY_ROW:
            return attribute("data", values.row(kDrcMetadataValues, 0, 2));
    }
    return "";
}

void writeGeneral(Writer& out, Values& values) {
    out.open(1, "general");
    out.open(2, "settings");
    for (const auto& [name, parameter] : kGeneralElements) {
        out.empty(3, name, attribute(kValueAttribute, kTrueWord));
    }
    for (const char* endpoint : kEndpointNames) {
        out.open(3, kEndpointTypeElement, attribute(kEndpointIdAttribute, endpoint));
        for (const auto& [name, parameter] : kGeneralEndpointElements) {
            out.empty(4, name, attribute(kValueAttribute, std::to_string(values.next(-96, 0))));
        }
        out.close(3, kEndpointTypeElement);
    }
    out.close(2, "settings");
    out.close(1, "general");
}

void writePresets(Writer& out, Values& values, int bands) {
    for (const auto& [word, type] : kIeqPresetIdWords) {
        out.open(1, "preset",
                 attribute("type", "ieq") + attribute("id", std::string("ieq_") + word));
        out.open(2, "ieq");
        out.open(3, "bands");
        for (int band = 0; band < bands; ++band) {
            out.empty(4, "band_ieq",
                      attribute("frequency", std::to_string(40 + band * 900)) +
                          attribute("target", std::to_string(values.next(0, 120))));
        }
        out.close(3, "bands");
        out.close(2, "ieq");
        out.close(1, "preset");
    }
    for (int id = 0; id < 4; ++id) {
        out.open(1, "preset", attribute("type", "geq") + attribute("id", std::to_string(id)));
        out.open(2, "geq");
        out.open(3, "bands");
        for (int band = 0; band < 10; ++band) {
            out.empty(4, "band_geq",
                      attribute("frequency", std::to_string(32 << band)) +
                          attribute("gain", std::to_string(values.next(-48, 48))));
        }
        out.close(3, "bands");
        out.close(2, "geq");
        out.close(1, "preset");
    }
}

void writeProfile(Writer& out, Values& values, int id) {
    out.open(
        1, "profile",
        attribute("id", std::to_string(id)) + attribute("name", "profile" + std::to_string(id)));
    out.open(2, "settings");
    for (const auto& [name, value] : kProfileElements) {
        out.empty(3, name, settingValue(value, values));
    }
    for (size_t index = 0; index < kNumEndpoints; ++index) {
        const auto endpoint = static_cast<Endpoint>(index);
        out.open(3, kEndpointTypeElement, attribute(kEndpointIdAttribute, kEndpointNames[index]));
        for (const auto& [name, value] : kProfileEndpointElements) {
            if (settingFits(name, endpoint)) {
                out.empty(4, name, settingValue(value, values));
            }
        }
        out.close(3, kEndpointTypeElement);
    }
    out.close(2, "settings");
    out.empty(2, kIncludeElement, attribute(kIncludePresetAttribute, "ieq_balanced"));
    out.close(1, "profile");
}

int rowLength(Parameter parameter) {
    switch (parameter) {
        case REGULATOR_STRESS_AMOUNT:
            return 4;
        case BASS_MBDRC_TUNING:
            return 16;
        case REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT:
        case REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT:
        case REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_LEFT_SURROUND:
        case REGULATOR_SIBILANCE_SUPPRESS_AMOUNTS_RIGHT_SURROUND:
            return kSibilanceBands;
        default:
            return kComplexEqualizerBands;
    }
}

void writeTuning(Writer& out, Values& values, const std::string& name, Endpoint endpoint,
                 int bands) {
    out.open(1, "tuning",
             attribute("name", name) + attribute("endpoint_type", kEndpointNames[endpoint]) +
                 attribute("mono_device", "false") + attribute("orientation", "0") +
                 attribute("output_channels", "2"));
    out.empty(2, kDeviceIdElement,
              attribute("id", name + "_device") + attribute("endpoint_port", name + "_port"));
    out.open(2, "data");
    for (const auto& [element, parameter] : kTuningValueElements) {
        out.empty(3, element, attribute(kValueAttribute, std::to_string(values.next(-96, 300))));
    }
    for (const auto& [element, row] : kTuningRowElements) {
        out.empty(3, element, attribute("data", values.row(rowLength(row.parameter), -64, 96)));
    }
    for (const auto& [element, attributes] : kTuningAttributeElements) {
        std::string text;
        for (const auto& [attributeName, parameter] : attributes) {
            text += attribute(attributeName, std::to_string(values.next(40, 250)));
        }
        out.empty(3, element, text);
    }
    for (const auto& [element, parameter] : kTuningAttributeListElements) {
        out.empty(3, element,
                  attribute("gain_2nd", std::to_string(values.next(-200, 0))) +
                      attribute("gain_3rd", std::to_string(values.next(-200, 0))) +
                      attribute("gain_4th", std::to_string(values.next(-200, 0))));
    }
    for (const auto& [element, columns] : kTuningBandElements) {
        out.open(3, element);
        for (int band = 0; band < bands; ++band) {
            std::string text;
            for (const auto& [column, kind] : columns) {
                text += attribute(column, kind.value == BandValue::TRUE_WORD
                                              ? std::string(band < 4 ? kTrueWord : kFalseWord)
                                              : std::to_string(values.next(-272, 17327)));
            }
            out.empty(4, "band", text);
        }
        out.close(3, element);
    }
    if (endpoint == ENDPOINT_SPEAKER) {
        out.open(3, kOutputModeElement);
        for (const auto& [matrix, parameter] : kOutputModeMatrices) {
            out.open(4, matrix);
            out.empty(5, "row", attribute("coefficients", "16384,0,11585,0"));
            out.empty(5, "row", attribute("coefficients", "0,16384,0,11585"));
            out.close(4, matrix);
        }
        out.close(3, kOutputModeElement);
    }
    out.close(2, "data");
    out.close(1, "tuning");
}

}  // namespace

const TuningFileShape& tuningFileShape(int index) {
    return kShapes[index];
}

std::string generateTuningFile(const TuningFileShape& shape) {
    Values values;
    Writer out;
    out.line(0, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    out.open(0, "ovela_tuning");
    out.empty(1, "format_version",
              attribute("major", "1") + attribute("minor", "4") + attribute("maintenance", "0"));
    out.empty(1, "tool_version",
              attribute("major", "2") + attribute("minor", "11") + attribute("maintenance", "3"));
    writeGeneral(out, values);
    writePresets(out, values, shape.bands);
    for (int id = 0; id < kProfiles; ++id) {
        writeProfile(out, values, id);
    }
    for (int tuning = 0; tuning < shape.tunings; ++tuning) {
        if (tuning == 0) {
            writeTuning(out, values, kEndpointNames[ENDPOINT_SPEAKER], ENDPOINT_SPEAKER,
                        shape.bands);
        } else if (tuning == 1) {
            writeTuning(out, values, kDefaultTuningName, ENDPOINT_OTHER, shape.bands);
        } else {
            const auto endpoint = static_cast<Endpoint>(tuning % kNumEndpoints);
            writeTuning(out, values, "tuning_" + std::to_string(tuning), endpoint, shape.bands);
        }
    }
    out.close(0, "ovela_tuning");
    return out.take();
}

const std::string& tuningFilePath(const TuningFileShape& shape) {
    // Removes the files when the process ends.
    static struct Files {
        ~Files() {
            for (const auto& [name, path] : paths) {
                unlink(path.c_str());
            }
        }
        std::map<std::string, std::string> paths;
    } files;
    std::string& path = files.paths[shape.name];
    if (path.empty()) {
        const std::string text = generateTuningFile(shape);
        char name[] = "/tmp/ovela-bench-XXXXXX.xml";
        const int fd = mkstemps(name, 4);
        if (fd < 0 || write(fd, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
            perror("generated tuning file");
            abort();
        }
        close(fd);
        path = name;
    }
    return path;
}

}  // namespace ovela::bench
