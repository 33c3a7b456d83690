#ifndef OVELA_TUNE_SVG_CHART_H
#define OVELA_TUNE_SVG_CHART_H

#include <string>
#include <vector>

// Charts drawn as inline SVG, so that a page holds them without scripts or
// fonts from elsewhere. Every chart carries its name in "data-chart" and
// every series its name in "data-series".
namespace ovela::tune {

struct ChartSeries {
    std::string name;
    std::vector<double> x;
    std::vector<double> y;
    // False for values that the file gives and the effect never receives:
    // drawn dashed, and said so in the legend.
    bool sent = true;
};

enum class XScale {
    LOG_FREQUENCY,  // 20 Hz to 20 kHz, logarithmic; values outside sit at the edges
    POSITION,       // 0, 1, 2... the place of a value in its list
};

struct LineChart {
    std::string id;
    std::string title;
    XScale xScale;
    std::string xLabel;
    std::string yLabel;
    std::vector<ChartSeries> series;  // overlaid, with a legend
};

// Axes with ticks and labels, one polyline with a dot per point for each
// series, and a legend.
std::string drawLineChart(const LineChart& chart);

struct FrequencyRange {
    std::string name;
    double low;
    double high;
    bool sent = true;  // as a series' flag
};

// Frequency ranges as bars on the logarithmic axis, one row each.
std::string drawRangeChart(const std::string& id, const std::string& title,
                           const std::vector<FrequencyRange>& ranges);

struct RoomBar {
    std::string name;
    std::string link;  // the page section the bar stands for, "" for none
    double used;
    double room;
};

// How much of its room each array uses, as bars scaled to the largest room.
std::string drawRoomChart(const std::string& id, const std::string& title,
                          const std::vector<RoomBar>& bars);

// `text` with the characters that HTML and SVG give a meaning escaped.
std::string escapedHtml(const std::string& text);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_SVG_CHART_H
