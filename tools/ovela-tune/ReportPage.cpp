#include "ReportPage.h"

#include <ovela/AudioDevices.h>

#include <algorithm>
#include <map>
#include <set>

#include "DeviceData.h"
#include "FileContents.h"
#include "StoreArrays.h"
#include "SvgChart.h"
#include "TuningFileShape.h"
#include "TuningFileVocabulary.h"

namespace ovela::tune {

namespace {

constexpr char kStyle[] = R"(
body { font-family: "DejaVu Sans", sans-serif; margin: 24px; color: #222; max-width: 1100px; }
h1 { font-size: 22px; } h2 { font-size: 18px; margin-top: 32px; } h3 { font-size: 15px; }
table { border-collapse: collapse; font-size: 12px; }
th, td { border: 1px solid #ccc; padding: 4px 8px; text-align: left; vertical-align: top; }
th { background: #f3f3f3; }
ul.findings { font-size: 13px; padding-left: 20px; }
li.error { color: #b00; } li.warning { color: #a60; } li.note { color: #555; }
svg { display: block; margin: 8px 0 16px; font-size: 11px; }
svg text { fill: #222; stroke: none; } svg text.title { font-size: 13px; font-weight: bold; }
svg .grid { stroke: #e4e4e4; } svg .axis { stroke: #444; }
svg polyline { stroke-width: 1.5; }
svg .room { fill: #eee; } svg .used { fill: #4a9; } svg .over { fill: #d33; }
p.file { color: #555; } p { font-size: 14px; }
)";

// The frequencies that the equalizers and the tunings' bands are drawn over.
constexpr char kHertz[] = "frequency (Hz)";

std::string anchorOf(const std::string& kind, const std::string& name) {
    std::string anchor = kind;
    for (char c : name) {
        anchor += std::isalnum(static_cast<unsigned char>(c)) ? c : '-';
    }
    return anchor;
}

std::string profileAnchor(int id) {
    return "profile-" + std::to_string(id);
}

std::string tuningAnchor(const std::string& name) {
    return anchorOf("tuning-", name);
}

std::string heading(const char* tag, const std::string& text) {
    return std::string("<") + tag + ">" + escapedHtml(text) + "</" + tag + ">\n";
}

// The sections of the page that findings link to, by the line where their
// part of the file begins.
class SectionLines {
  public:
    SectionLines(const LoadTrace& trace, DeviceData& model) {
        for (IeqPreset* preset : model.getIeqPresets()) {
            add(trace.placeOf(preset).line, "ieq-presets");
        }
        for (GeqPreset* preset : model.getGeqPresets()) {
            add(trace.placeOf(preset).line, "geq-presets");
        }
        for (Profile* profile : model.getProfiles()) {
            add(trace.placeOf(profile).line, profileAnchor(profile->getProfileId()));
        }
        for (Tuning* tuning : model.getTunings()) {
            add(trace.placeOf(tuning).line, tuningAnchor(tuning->getName()));
        }
        if (model.getGeneral() != nullptr) {
            add(trace.placeOf(model.getGeneral()).line, "arrays");
        }
        std::sort(mLines.begin(), mLines.end());
    }

    // The section that holds `line`: the last one that begins at or before it.
    std::string anchorOf(long line) const {
        auto after = std::upper_bound(mLines.begin(), mLines.end(),
                                      std::make_pair(line, std::string("\x7f")));
        return after == mLines.begin() ? "" : std::prev(after)->second;
    }

  private:
    void add(long line, std::string anchor) {
        if (line > 0) {
            mLines.emplace_back(line, std::move(anchor));
        }
    }

    std::vector<std::pair<long, std::string>> mLines;
};

std::string findingsSection(const LoadedFile& file, const SectionLines* sections) {
    // What the file's comments accept, the page leaves out as check does.
    std::vector<LoadFinding> findings = file.findings();
    findings.erase(std::remove_if(findings.begin(), findings.end(),
                                  [](const LoadFinding& finding) { return finding.suppressed; }),
                   findings.end());
    std::string html = "<section id=\"findings\">\n" +
                       heading("h2", "Findings (" + std::to_string(findings.size()) + ")");
    if (findings.empty()) {
        return html + "<p>The load reports nothing.</p>\n</section>\n";
    }
    html += "<ul class=\"findings\">\n";
    for (const LoadFinding& finding : findings) {
        std::string place = "line " + std::to_string(finding.line);
        const std::string anchor = sections == nullptr ? "" : sections->anchorOf(finding.line);
        if (!anchor.empty()) {
            place = "<a href=\"#" + anchor + "\">" + place + "</a>";
        }
        html += std::string("<li class=\"") + severityName(finding.severity) + "\">" + place +
                ": " + severityName(finding.severity) + ": " + escapedHtml(finding.message) + " [" +
                escapedHtml(finding.rule) + "]</li>\n";
    }
    return html + "</ul>\n</section>\n";
}

// One value of a list as the report draws it, with the row of the file that
// gave it: a band row's start tag, or for a list that one element gives, its
// position (line 0).
struct DrawnValue {
    Place row;
    double value;
};

bool sameRow(const Place& a, const Place& b) {
    return a.line == b.line && a.column == b.column;
}

// The values of `parameter` of `entity`: those that an array carries, when
// one does, else those that the file gives, which the effect never receives.
class DrawnList {
  public:
    DrawnList(const FileContents& contents, const LoadTrace& trace, const ParameterValues& entity,
              Parameter parameter) {
        const TracedValues* traced = trace.valuesOf(&entity, parameter);
        if (traced == nullptr || traced->sources.empty()) {
            return;
        }
        mSent = traced->fate == Fate::SENT;
        if (mSent && fromArrays(contents, parameter, *traced)) {
            return;
        }
        mSent = false;
        const auto found = entity.values.find(parameter);
        if (found != entity.values.end()) {
            take(found->second.data(), found->second.size(), traced->sources);
        }
    }

    bool sent() const { return mSent; }
    bool empty() const { return mValues.empty(); }
    const std::vector<DrawnValue>& values() const { return mValues; }

  private:
    // The entry part that carries these values, found by where they came from.
    bool fromArrays(const FileContents& contents, Parameter parameter, const TracedValues& traced) {
        for (const NamedArray& array : contents.arrays) {
            for (const NamedEntry& entry : array.entries) {
                for (const EntryPart& part : entry.parts) {
                    if (part.parameter == parameter && !part.sources.empty() &&
                        sameRow(part.sources.front().place, traced.sources.front().place) &&
                        part.first + part.count <= entry.values.size()) {
                        take(entry.values.data() + part.first, part.count, part.sources);
                        return true;
                    }
                }
            }
        }
        return false;
    }

    void take(const int32_t* values, size_t count, const std::vector<Source>& sources) {
        const bool byRow = sources.size() == count;
        for (size_t i = 0; i < count; ++i) {
            mValues.push_back({byRow ? sources[i].elementPlace : Place{0, static_cast<long>(i)},
                               static_cast<double>(values[i])});
        }
    }

    std::vector<DrawnValue> mValues;
    bool mSent = false;
};

// `y` over `x`, value by value from the same row: a row that gives one and
// not the other adds no point, and moves none.
ChartSeries series(std::string name, const DrawnList& x, const DrawnList& y) {
    ChartSeries drawn{std::move(name), {}, {}, x.sent() && y.sent()};
    for (const DrawnValue& point : y.values()) {
        for (const DrawnValue& at : x.values()) {
            if (sameRow(at.row, point.row)) {
                drawn.x.push_back(at.value);
                drawn.y.push_back(point.value);
                break;
            }
        }
    }
    return drawn;
}

// `y` over the positions of its values.
ChartSeries positionSeries(std::string name, const DrawnList& y) {
    ChartSeries drawn{std::move(name), {}, {}, y.sent()};
    for (size_t i = 0; i < y.values().size(); ++i) {
        drawn.x.push_back(static_cast<double>(i));
        drawn.y.push_back(y.values()[i].value);
    }
    return drawn;
}

// What the entries of `device` switch on: every "-enable" value that is not
// 0, by the name of what it enables.
std::string enabledFeatures(const NamedArray& array, int32_t device) {
    static const std::string kEnable = "-enable";
    std::vector<std::string> features;
    for (const NamedEntry& entry : array.entries) {
        if (entry.device != device) {
            continue;
        }
        for (const EntryPart& part : entry.parts) {
            const std::string name = partName(part);
            if (part.count == 1 && part.first < entry.values.size() &&
                entry.values[part.first] != 0 && name.size() > kEnable.size() &&
                name.compare(name.size() - kEnable.size(), kEnable.size(), kEnable) == 0) {
                features.push_back(name.substr(0, name.size() - kEnable.size()));
            }
        }
    }
    std::sort(features.begin(), features.end());
    return features.empty() ? "-" : joined(features);
}

std::string profilesSection(const FileContents& contents) {
    std::vector<int32_t> devices = {kDeviceAll};
    for (size_t e = 0; e < kNumEndpoints; ++e) {
        const int32_t device = deviceForEndpoint(static_cast<Endpoint>(e));
        for (const NamedArray& array : contents.arrays) {
            const bool has =
                std::any_of(array.entries.begin(), array.entries.end(),
                            [&](const NamedEntry& entry) { return entry.device == device; });
            if (array.kind == ArrayKind::PROFILE && has) {
                devices.push_back(device);
                break;
            }
        }
    }
    std::string html = "<section id=\"profiles\">\n" +
                       heading("h2", "Profiles: what each one switches on, per endpoint") +
                       "<table>\n<tr><th>profile</th><th>IEQ preset</th>";
    for (int32_t device : devices) {
        html += "<th>" + escapedHtml(deviceName(device)) + "</th>";
    }
    html += "</tr>\n";
    for (const NamedArray& array : contents.arrays) {
        if (array.kind != ArrayKind::PROFILE) {
            continue;
        }
        html += "<tr id=\"" + profileAnchor(array.header) + "\"><td>" +
                escapedHtml(std::to_string(array.header) + " " + joined(array.profileNames)) +
                "</td><td>" + escapedHtml(joined(array.ieqPresets)) + "</td>";
        for (int32_t device : devices) {
            html += "<td>" + escapedHtml(enabledFeatures(array, device)) + "</td>";
        }
        html += "</tr>\n";
    }
    return html + "</table>\n</section>\n";
}

std::string endpointsSection(const FileContents& contents) {
    std::string html = "<section id=\"endpoints\">\n" +
                       heading("h2", "Endpoints and their tunings") +
                       "<table>\n<tr><th>endpoint</th><th>tuning a cache starts with</th>"
                       "<th>tunings it can select</th></tr>\n";
    for (const EndpointTuning& endpoint : contents.endpoints) {
        std::string tuning = escapedHtml(endpoint.recorded);
        if (endpoint.recorded != kDefaultTuningName) {
            tuning = "<a href=\"#" + tuningAnchor(endpoint.recorded) + "\">" + tuning + "</a>";
        }
        html += std::string("<tr><td>") + kEndpointNames[endpoint.endpoint] + "</td><td>" + tuning +
                "</td><td>" + escapedHtml(joined(endpoint.available)) + "</td></tr>\n";
    }
    return html + "</table>\n</section>\n";
}

std::string presetsSections(DeviceData& model, const FileContents& contents,
                            const LoadTrace& trace) {
    LineChart ieq{"ieq-presets", "IEQ presets: target curves", XScale::LOG_FREQUENCY,
                  kHertz,        "target (as in the file)",    {}};
    std::vector<IeqPreset*> ieqPresets(model.getIeqPresets().begin(), model.getIeqPresets().end());
    std::sort(ieqPresets.begin(), ieqPresets.end(),
              [](IeqPreset* a, IeqPreset* b) { return a->getType() < b->getType(); });
    for (IeqPreset* preset : ieqPresets) {
        ieq.series.push_back(series(kPresetTypeNames[preset->getType()],
                                    DrawnList(contents, trace, *preset, IEQ_FREQUENCY),
                                    DrawnList(contents, trace, *preset, IEQ_TARGET)));
    }
    LineChart geq{"geq-presets", "GEQ presets: band gains", XScale::LOG_FREQUENCY,
                  kHertz,        "gain (as in the file)",   {}};
    std::vector<GeqPreset*> geqPresets(model.getGeqPresets().begin(), model.getGeqPresets().end());
    std::sort(geqPresets.begin(), geqPresets.end(),
              [](GeqPreset* a, GeqPreset* b) { return a->getProfileId() < b->getProfileId(); });
    for (GeqPreset* preset : geqPresets) {
        geq.series.push_back(series("preset " + std::to_string(preset->getProfileId()),
                                    DrawnList(contents, trace, *preset, GEQ_FREQUENCY),
                                    DrawnList(contents, trace, *preset, GEQ_GAIN)));
    }
    std::string html;
    for (const LineChart* chart : {&ieq, &geq}) {
        html += "<section id=\"" + chart->id + "\">\n";
        html += chart->series.empty() ? heading("h2", chart->title) + "<p>The file has none.</p>\n"
                                      : drawLineChart(*chart);
        html += "</section>\n";
    }
    return html;
}

// A chart of every band table of the tuning: each number column over the
// rows' frequencies.
std::string bandCharts(Tuning& tuning, const std::string& id, const FileContents& contents,
                       const LoadTrace& trace) {
    std::string html;
    for (const auto& [element, columns] : kTuningBandElements) {
        LineChart chart{id + "-" + element,       element, XScale::LOG_FREQUENCY, kHertz,
                        "value (as in the file)", {}};
        const DrawnList frequencies(contents, trace, tuning, columns.begin()->second.parameter);
        for (const auto& [name, column] : columns) {
            if (std::string(name) == kBandFrequencyAttribute || column.value != BandValue::NUMBER) {
                continue;
            }
            const DrawnList values(contents, trace, tuning, column.parameter);
            if (!values.empty()) {
                chart.series.push_back(series(name, frequencies, values));
            }
        }
        if (!frequencies.empty() && !chart.series.empty()) {
            html += drawLineChart(chart);
        }
    }
    return html;
}

std::string complexEqualizerChart(Tuning& tuning, const std::string& id,
                                  const FileContents& contents, const LoadTrace& trace) {
    // The lists' names differ in their channels only: the legend names those.
    const std::string common = xmlNameOf(COMPLEX_EQUALIZER_TUNING_LEFT);
    const std::string prefix = common.substr(0, common.rfind('-') + 1);
    LineChart chart{id + "-complex-equalizer", prefix + "* lists",       XScale::POSITION,
                    "position in the list",    "value (as in the file)", {}};
    for (Parameter parameter :
         {COMPLEX_EQUALIZER_TUNING_LEFT, COMPLEX_EQUALIZER_TUNING_RIGHT,
          COMPLEX_EQUALIZER_TUNING_LEFT_SURROUND, COMPLEX_EQUALIZER_TUNING_RIGHT_SURROUND}) {
        const DrawnList values(contents, trace, tuning, parameter);
        if (!values.empty()) {
            chart.series.push_back(
                positionSeries(xmlNameOf(parameter).substr(prefix.size()), values));
        }
    }
    return chart.series.empty() ? "" : drawLineChart(chart);
}

bool isSent(const LoadTrace& trace, const ParameterValues& entity, Parameter parameter) {
    const TracedValues* traced = trace.valuesOf(&entity, parameter);
    return traced != nullptr && traced->fate == Fate::SENT;
}

std::string virtualBassChart(Tuning& tuning, const std::string& id, const LoadTrace& trace) {
    std::vector<FrequencyRange> ranges;
    for (const auto& [element, columns] : kTuningAttributeElements) {
        std::vector<double> ends;
        bool sent = true;
        for (const auto& [column, parameter] : columns) {
            const auto found = tuning.values.find(parameter);
            if (found != tuning.values.end()) {
                ends.insert(ends.end(), found->second.begin(), found->second.end());
            }
            sent = sent && isSent(trace, tuning, parameter);
        }
        if (ends.size() == 2) {
            ranges.push_back(
                {element, std::min(ends[0], ends[1]), std::max(ends[0], ends[1]), sent});
        }
    }
    std::string html =
        ranges.empty() ? "" : drawRangeChart(id + "-virtual-bass", "virtual bass ranges", ranges);
    for (const auto& [element, parameter] : kTuningAttributeListElements) {
        const auto found = tuning.values.find(parameter);
        if (found != tuning.values.end() && !found->second.empty()) {
            html += "<p>" +
                    escapedHtml(std::string(element) + ": " + valuesText(found->second) +
                                (isSent(trace, tuning, parameter) ? "" : " (never sent)")) +
                    "</p>\n";
        }
    }
    return html;
}

std::string tuningSections(DeviceData& model, const FileContents& contents, const LoadTrace& trace) {
    std::vector<Tuning*> tunings(model.getTunings().begin(), model.getTunings().end());
    std::sort(tunings.begin(), tunings.end(),
              [](Tuning* a, Tuning* b) { return a->getName() < b->getName(); });
    std::string html;
    for (Tuning* tuning : tunings) {
        const std::string id = tuningAnchor(tuning->getName());
        html += "<section id=\"" + id + "\">\n" +
                heading("h2", "Tuning " + tuning->getName() + " for " +
                                  kEndpointNames[tuning->getEndpoint()]);
        if (tuning->getName() == kDefaultTuningName) {
            std::vector<std::string> serves;
            for (Endpoint endpoint : contents.defaultServes) {
                serves.push_back(kEndpointNames[endpoint]);
            }
            html += "<p>Sent with the general array for " +
                    escapedHtml(serves.empty() ? "no endpoint" : joined(serves)) + ".</p>\n";
        }
        const std::string charts = bandCharts(*tuning, id, contents, trace) +
                                   complexEqualizerChart(*tuning, id, contents, trace) +
                                   virtualBassChart(*tuning, id, trace);
        html += charts.empty() ? "<p>No bands or lists.</p>\n" : charts;
        html += "</section>\n";
    }
    return html;
}

// The words each stored array uses against the room the store gave it.
std::string roomSection(const FileContents& contents, const LoadTrace& trace) {
    std::vector<RoomBar> bars;
    for (const NamedArray& array : contents.arrays) {
        const ArrayRecord* record = nullptr;
        std::string link;
        if (array.kind == ArrayKind::TUNING) {
            auto found = trace.tuningRecords().find(array.name);
            record = found == trace.tuningRecords().end() ? nullptr : &found->second;
            link = tuningAnchor(array.name);
        } else {
            auto found = trace.profileRecords().find(array.header);
            record = found == trace.profileRecords().end() ? nullptr : &found->second;
            link = array.kind == ArrayKind::PROFILE ? profileAnchor(array.header) : "";
        }
        if (record != nullptr) {
            bars.push_back({array.title(), link, static_cast<double>(array.size / sizeof(int32_t)),
                            static_cast<double>(record->room)});
        }
    }
    return "<section id=\"arrays\">\n" +
           drawRoomChart("array-room", "Room: words each array uses of its room", bars) +
           "</section>\n";
}

}  // namespace

std::string reportPage(LoadedFile& file) {
    std::string html =
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<title>" +
        escapedHtml("Tuning report: " + file.path) + "</title>\n<style>" + kStyle +
        "</style>\n</head>\n<body>\n" + heading("h1", "Tuning report") + "<p class=\"file\">" +
        escapedHtml(file.path + ": " + file.summary()) + "</p>\n";
    DeviceData* model = file.loads() ? file.report.model() : nullptr;
    if (model == nullptr) {
        return html + findingsSection(file, nullptr) + "</body>\n</html>\n";
    }
    const LoadTrace& trace = file.report.trace();
    const SectionLines sections(trace, *model);
    const FileContents contents = describe(file);
    html += findingsSection(file, &sections) + presetsSections(*model, contents, trace) +
            profilesSection(contents) + endpointsSection(contents) +
            tuningSections(*model, contents, trace) + roomSection(contents, trace);
    return html + "</body>\n</html>\n";
}

}  // namespace ovela::tune
