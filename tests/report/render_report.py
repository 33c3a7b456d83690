#!/usr/bin/env python3
"""Renders the sample's report in headless Chromium and checks what it drew.

Usage: render_report.py OVELA_TUNE SAMPLE OUT_DIR

Writes OUT_DIR/sample-report.html, the DOM that Chromium built from it and a
screenshot of its top, OUT_DIR/sample-report.png. Checks that every chart the
sample calls for is in the DOM with the number of points its data has, and
that every link of the page lands on a section of it.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from html.parser import HTMLParser

# Per chart, per series: how many points (polylines) or bars (rects) the
# sample gives it.
BANDS = 20
TUNINGS = ["bluetooth", "default", "headphone", "speaker"]
EXPECTED = {
    "ieq-presets": {name: BANDS for name in ["off", "detailed", "balanced", "warm"]},
    "geq-presets": {f"preset {n}": 10 for n in [0, 1, 2, 3, 4, 5, 9]},
    "array-room": {name: 1 for name in ["general"] + [f"profile {n}" for n in range(10)]
                   + [f"tuning {t}" for t in TUNINGS if t != "default"]},
}
for tuning in TUNINGS:
    EXPECTED[f"tuning-{tuning}-audio-optimizer-bands"] = {
        name: BANDS for name in ["gain_left", "gain_right", "gain_left_surround",
                                 "gain_right_surround"]}
    EXPECTED[f"tuning-{tuning}-regulator-tuning"] = {"threshold_low": BANDS,
                                                     "threshold_high": BANDS}
    EXPECTED[f"tuning-{tuning}-complex-equalizer"] = {
        name: BANDS for name in ["left", "right", "left-surround", "right-surround"]}
    EXPECTED[f"tuning-{tuning}-virtual-bass"] = {"virtual-bass-mix-freqs": 1,
                                                 "virtual-bass-src-freqs": 1}
SAMPLE_FINDINGS = 27


class Page(HTMLParser):
    """What the DOM holds: charts with their series' point counts, ids, links."""

    def __init__(self):
        super().__init__()
        self.charts = {}
        self.ids = set()
        self.links = []
        self.findings = 0
        self._chart = None
        self._series = None

    def handle_starttag(self, tag, attrs):
        a = dict(attrs)
        if "id" in a:
            self.ids.add(a["id"])
        if tag == "a" and a.get("href", "").startswith("#"):
            self.links.append(a["href"][1:])
        if tag == "li" and a.get("class") in ("error", "warning", "note"):
            self.findings += 1
        if tag == "svg":
            self._chart = self.charts.setdefault(a.get("data-chart"), {})
        elif self._chart is not None and "data-series" in a:
            self._series = a["data-series"]
            if tag == "rect":
                self._chart[self._series] = self._chart.get(self._series, 0) + 1
        elif self._chart is not None and tag == "polyline":
            numbers = re.findall(r"-?\d+(?:\.\d+)?", a.get("points", ""))
            self._chart[self._series] = len(numbers) // 2

    def handle_endtag(self, tag):
        if tag == "svg":
            self._chart = None


def chromium():
    for path in ["/usr/lib/chromium/chromium", shutil.which("chromium") or ""]:
        if path and os.access(path, os.X_OK):
            return path
    sys.exit("chromium is not installed")


def run_chromium(url, *arguments):
    with tempfile.TemporaryDirectory() as profile:
        return subprocess.run(
            [chromium(), "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
             "--no-first-run", "--disable-background-networking", "--disable-component-update",
             "--disable-sync", "--disable-extensions", "--hide-scrollbars",
             "--force-device-scale-factor=1", f"--user-data-dir={profile}",
             "--host-resolver-rules=MAP * ~NOTFOUND", *arguments, url],
            capture_output=True, text=True, timeout=120)


def main():
    tool, sample, out_dir = sys.argv[1:4]
    os.makedirs(out_dir, exist_ok=True)
    page_path = os.path.abspath(os.path.join(out_dir, "sample-report.html"))
    subprocess.run([tool, "report", sample, "-o", page_path], check=True)
    url = "file://" + page_path

    dom = run_chromium(url, "--dump-dom").stdout
    with open(os.path.join(out_dir, "sample-report.dom.html"), "w") as saved:
        saved.write(dom)
    page = Page()
    page.feed(dom)
    failures = []
    for chart, series in EXPECTED.items():
        if page.charts.get(chart) != series:
            failures.append(f"{chart}: drew {page.charts.get(chart)}, expected {series}")
    for chart in set(page.charts) - set(EXPECTED):
        failures.append(f"{chart}: not expected")
    if page.findings != SAMPLE_FINDINGS:
        failures.append(f"{page.findings} findings listed, expected {SAMPLE_FINDINGS}")
    for link in page.links:
        if link not in page.ids:
            failures.append(f"link #{link} lands nowhere")

    screenshot = os.path.abspath(os.path.join(out_dir, "sample-report.png"))
    run_chromium(url, "--window-size=1000,1500", f"--screenshot={screenshot}")
    if not os.path.getsize(screenshot):
        failures.append("no screenshot")

    for failure in failures:
        print("FAIL:", failure)
    print(f"{len(page.charts)} charts, {len(page.links)} links; screenshot {screenshot}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
