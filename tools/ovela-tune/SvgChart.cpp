#include "SvgChart.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace ovela::tune {

namespace {

constexpr double kWidth = 900;
constexpr double kPlotLeft = 70;
constexpr double kPlotRight = 560;  // the legend sits to the right of the plot
constexpr double kPlotTop = 36;
constexpr double kPlotHeight = 220;
constexpr double kPlotBottom = kPlotTop + kPlotHeight;
constexpr double kHeight = kPlotBottom + 50;
constexpr double kLowestFrequency = 20;
constexpr double kHighestFrequency = 20000;
constexpr const char* kColors[] = {"#1f77b4", "#d62728", "#2ca02c", "#ff7f0e",
                                   "#9467bd", "#8c564b", "#e377c2", "#17becf"};

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.1f", value);
    return text;
}

// A value as the file wrote it: "1098", "-4".
std::string exact(double value) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.10g", value);
    return text;
}

// A tick's or a count's label: "20", "0.5", "1200".
std::string label(double value) {
    char text[32];
    std::snprintf(text, sizeof(text), "%g", value);
    return text;
}

const char* colorOf(size_t index) {
    return kColors[index % std::size(kColors)];
}

std::string svgOpen(const std::string& id, double height, const std::string& title) {
    return "<svg data-chart=\"" + escapedHtml(id) + "\" role=\"img\" aria-label=\"" +
           escapedHtml(title) + "\" width=\"" + number(kWidth) + "\" height=\"" + number(height) +
           "\" viewBox=\"0 0 " + number(kWidth) + " " + number(height) +
           "\" xmlns=\"http://www.w3.org/2000/svg\">\n<text class=\"title\" x=\"" +
           number(kPlotLeft) + "\" y=\"20\">" + escapedHtml(title) + "</text>\n";
}

std::string text(double x, double y, const std::string& content, const char* anchor,
                 const std::string& extra = "") {
    return "<text x=\"" + number(x) + "\" y=\"" + number(y) + "\" text-anchor=\"" + anchor + "\"" +
           extra + ">" + escapedHtml(content) + "</text>\n";
}

std::string line(double x1, double y1, double x2, double y2, const char* cssClass) {
    return "<line class=\"" + std::string(cssClass) + "\" x1=\"" + number(x1) + "\" y1=\"" +
           number(y1) + "\" x2=\"" + number(x2) + "\" y2=\"" + number(y2) + "\"/>\n";
}

// Where frequencies go across the plot.
double frequencyX(double hertz) {
    const double clamped = std::clamp(hertz, kLowestFrequency, kHighestFrequency);
    return kPlotLeft + (std::log10(clamped) - std::log10(kLowestFrequency)) /
                           (std::log10(kHighestFrequency) - std::log10(kLowestFrequency)) *
                           (kPlotRight - kPlotLeft);
}

std::string frequencyLabel(double hertz) {
    return hertz >= 1000 ? label(hertz / 1000) + "k" : label(hertz);
}

std::string frequencyAxis(double bottom) {
    std::string svg;
    for (double decade = 10; decade <= kHighestFrequency; decade *= 10) {
        for (double step : {2.0, 5.0, 10.0}) {
            const double hertz = decade * step;
            if (hertz < kLowestFrequency || hertz > kHighestFrequency) {
                continue;
            }
            const double x = frequencyX(hertz);
            svg += line(x, kPlotTop, x, bottom, "grid");
            svg += text(x, bottom + 16, frequencyLabel(hertz), "middle");
        }
    }
    return svg + text((kPlotLeft + kPlotRight) / 2, bottom + 36, "frequency (Hz)", "middle");
}

// Ticks at 1, 2 or 5 times a power of ten, about five of them.
double tickStep(double span) {
    const double raw = span / 5;
    const double power = std::pow(10, std::floor(std::log10(raw)));
    for (double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= raw) {
            return factor * power;
        }
    }
    return 10 * power;
}

class ValueAxis {
  public:
    explicit ValueAxis(const std::vector<ChartSeries>& series) {
        for (const ChartSeries& one : series) {
            for (double y : one.y) {
                mLow = std::min(mLow, y);
                mHigh = std::max(mHigh, y);
            }
        }
        if (mLow > mHigh) {
            mLow = 0;
            mHigh = 1;
        }
        if (mLow == mHigh) {
            mLow -= 1;
            mHigh += 1;
        }
        mStep = tickStep(mHigh - mLow);
        mLow = std::floor(mLow / mStep) * mStep;
        mHigh = std::ceil(mHigh / mStep) * mStep;
    }

    double y(double value) const {
        return kPlotBottom - (value - mLow) / (mHigh - mLow) * kPlotHeight;
    }

    std::string draw(const std::string& name) const {
        std::string svg;
        for (double tick = mLow; tick <= mHigh + mStep / 2; tick += mStep) {
            svg += line(kPlotLeft, y(tick), kPlotRight, y(tick), "grid");
            svg += text(kPlotLeft - 6, y(tick) + 4, label(tick), "end");
        }
        const std::string centre = number((kPlotTop + kPlotBottom) / 2);
        return svg + text(18, (kPlotTop + kPlotBottom) / 2, name, "middle",
                          " transform=\"rotate(-90 18 " + centre + ")\"");
    }

  private:
    double mLow = HUGE_VAL;
    double mHigh = -HUGE_VAL;
    double mStep = 1;
};

std::string shownName(const std::string& name, bool sent) {
    return sent ? name : name + " (never sent)";
}

std::string legendEntry(size_t index, const std::string& name) {
    const double y = kPlotTop + 8 + 18 * static_cast<double>(index);
    return "<rect x=\"" + number(kPlotRight + 20) + "\" y=\"" + number(y - 8) +
           "\" width=\"12\" height=\"10\" fill=\"" + colorOf(index) + "\"/>\n" +
           text(kPlotRight + 38, y + 1, name, "start");
}

}  // namespace

std::string escapedHtml(const std::string& text) {
    std::string result;
    for (char c : text) {
        switch (c) {
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '&':
                result += "&amp;";
                break;
            case '"':
                result += "&quot;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

std::string drawLineChart(const LineChart& chart) {
    std::string svg = svgOpen(chart.id, kHeight, chart.title);
    const ValueAxis values(chart.series);
    svg += values.draw(chart.yLabel);
    double positions = 1;
    for (const ChartSeries& series : chart.series) {
        positions = std::max(positions, static_cast<double>(series.x.size()) - 1);
    }
    auto xOf = [&](double x) {
        return chart.xScale == XScale::LOG_FREQUENCY
                   ? frequencyX(x)
                   : kPlotLeft + x / positions * (kPlotRight - kPlotLeft);
    };
    if (chart.xScale == XScale::LOG_FREQUENCY) {
        svg += frequencyAxis(kPlotBottom);
    } else {
        const double step = std::max(1.0, tickStep(positions));
        for (double x = 0; x <= positions; x += step) {
            svg += line(xOf(x), kPlotTop, xOf(x), kPlotBottom, "grid");
            svg += text(xOf(x), kPlotBottom + 16, label(x), "middle");
        }
        svg += text((kPlotLeft + kPlotRight) / 2, kPlotBottom + 36, chart.xLabel, "middle");
    }
    svg += line(kPlotLeft, kPlotBottom, kPlotRight, kPlotBottom, "axis");
    svg += line(kPlotLeft, kPlotTop, kPlotLeft, kPlotBottom, "axis");
    // What the effect never receives goes underneath: a series that it does
    // receive stays in sight where the two lie on one another.
    std::vector<size_t> order;
    for (bool sent : {false, true}) {
        for (size_t i = 0; i < chart.series.size(); ++i) {
            if (chart.series[i].sent == sent) {
                order.push_back(i);
            }
        }
    }
    for (size_t i : order) {
        const ChartSeries& series = chart.series[i];
        std::string points;
        std::string dots;
        // The values as the file gives them, for whoever reads the page's source.
        std::string data;
        for (size_t p = 0; p < series.x.size() && p < series.y.size(); ++p) {
            const std::string x = number(xOf(series.x[p]));
            const std::string y = number(values.y(series.y[p]));
            points += (points.empty() ? "" : " ") + x + "," + y;
            dots += "<circle cx=\"" + x + "\" cy=\"" + y + "\" r=\"2.5\"/>";
            data += (data.empty() ? "" : " ") + exact(series.x[p]) + "," + exact(series.y[p]);
        }
        svg += "<g data-series=\"" + escapedHtml(series.name) + "\" data-sent=\"" +
               (series.sent ? "true" : "false") + "\" data-values=\"" + data + "\" fill=\"" +
               colorOf(i) + "\" stroke=\"" + colorOf(i) + "\">\n<polyline fill=\"none\"" +
               (series.sent ? "" : " stroke-dasharray=\"5,3\"") + " points=\"" + points + "\"/>\n" +
               dots + "\n</g>\n";
        svg += legendEntry(i, shownName(series.name, series.sent));
    }
    return svg + "</svg>\n";
}

std::string drawRangeChart(const std::string& id, const std::string& title,
                           const std::vector<FrequencyRange>& ranges) {
    const double rowHeight = 28;
    const double bottom = kPlotTop + rowHeight * static_cast<double>(ranges.size());
    std::string svg = svgOpen(id, bottom + 50, title);
    svg += frequencyAxis(bottom);
    svg += line(kPlotLeft, bottom, kPlotRight, bottom, "axis");
    for (size_t i = 0; i < ranges.size(); ++i) {
        const FrequencyRange& range = ranges[i];
        const double y = kPlotTop + rowHeight * static_cast<double>(i) + 6;
        const double left = frequencyX(std::min(range.low, range.high));
        const double right = frequencyX(std::max(range.low, range.high));
        svg += "<rect data-series=\"" + escapedHtml(range.name) + "\" x=\"" + number(left) +
               "\" y=\"" + number(y) + "\" width=\"" + number(std::max(1.0, right - left)) +
               "\" height=\"" + number(rowHeight - 12) + "\" fill=\"" + colorOf(i) + "\"" +
               (range.sent ? "" : " fill-opacity=\"0.4\"") + "/>\n";
        svg +=
            text(kPlotRight + 20, y + rowHeight / 2,
                 shownName(range.name + " " + label(range.low) + " to " + label(range.high) + " Hz",
                           range.sent),
                 "start");
    }
    return svg + "</svg>\n";
}

std::string drawRoomChart(const std::string& id, const std::string& title,
                          const std::vector<RoomBar>& bars) {
    const double rowHeight = 22;
    const double barLeft = 150;
    const double barWidth = 400;
    double largest = 1;
    for (const RoomBar& bar : bars) {
        largest = std::max({largest, bar.room, bar.used});
    }
    std::string svg =
        svgOpen(id, kPlotTop + rowHeight * static_cast<double>(bars.size()) + 10, title);
    for (size_t i = 0; i < bars.size(); ++i) {
        const RoomBar& bar = bars[i];
        const double y = kPlotTop + rowHeight * static_cast<double>(i);
        const bool over = bar.used > bar.room;
        std::string name = escapedHtml(bar.name);
        if (!bar.link.empty()) {
            name = "<a href=\"#" + escapedHtml(bar.link) + "\">" + name + "</a>";
        }
        svg += "<text x=\"" + number(barLeft - 8) + "\" y=\"" + number(y + 14) +
               "\" text-anchor=\"end\">" + name + "</text>\n";
        svg += "<rect class=\"room\" x=\"" + number(barLeft) + "\" y=\"" + number(y + 3) +
               "\" width=\"" + number(bar.room / largest * barWidth) + "\" height=\"16\"/>\n";
        svg += "<rect data-series=\"" + escapedHtml(bar.name) + "\" class=\"" +
               (over ? "over" : "used") + "\" x=\"" + number(barLeft) + "\" y=\"" + number(y + 3) +
               "\" width=\"" + number(bar.used / largest * barWidth) + "\" height=\"16\"/>\n";
        svg += text(barLeft + barWidth + 10, y + 15,
                    label(bar.used) + " of " + label(bar.room) + " words", "start");
    }
    return svg + "</svg>\n";
}

}  // namespace ovela::tune
