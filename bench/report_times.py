"""report_times.py MAKE_REPORT ROUNDS: measures reports of several sizes in Chromium and prints the medians."""

import json
import re
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

# Calls back when the answer to what was done before is on the screen.
DRAWN = "requestAnimationFrame(() => requestAnimationFrame(() => done(performance.now() - begin)));"
TIMED = "const done = arguments[arguments.length - 1], begin = performance.now();"

OPEN_ALL = TIMED + "document.getElementById('open-all').click();" + DRAWN

SEARCH = TIMED + """
    const box = document.getElementById("search");
    box.value = "music";
    new MutationObserver(() => { %s }).observe(document.getElementById("found"), {childList: true});
    box.dispatchEvent(new Event("input"));""" % DRAWN

# Turns the wheel by its usual step in each frame, and measures the frames.
SCROLL = """
    const done = arguments[0], view = document.getElementById("viewport"), frames = [];
    let last = performance.now();
    const step = now => {
        frames.push(now - last);
        last = now;
        view.scrollTop += 100;
        frames.length < 300 ? requestAnimationFrame(step) : done(frames.slice(1));
    };
    requestAnimationFrame(step);"""


def start_browser():
    options = Options()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     "--window-size=1366,900"):
        options.add_argument(argument)
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    browser.set_script_timeout(120)
    return browser


# The bytes of the file beyond the page itself and the names, for each entry.
def overhead(path, empty, entries):
    text = path.read_bytes()
    names = 0
    for block in re.findall(rb'class="block">([^<]*)</script>', text):
        names += sum(len(name.encode()) for name in json.loads(block)["names"].split("\b"))
    return (len(text) - empty - names) / entries


def measure(path):
    browser = start_browser()
    try:
        begin = time.monotonic()
        browser.get(path.as_uri())
        browser.execute_async_script(TIMED + DRAWN)
        opened = time.monotonic() - begin
        all_opened = browser.execute_async_script(OPEN_ALL)
        frames = sorted(browser.execute_async_script(SCROLL))
        found = browser.execute_async_script(SEARCH)
        return (opened * 1000, all_opened, found, statistics.median(frames), frames[len(frames) * 95 // 100])
    finally:
        browser.quit()


def main(make_report, rounds):
    print("| entries | file | beyond the names, for each entry | open | open all folders | search | frame while scrolling "
          "| 95 % of frames below |")
    print("|--:|--:|--:|--:|--:|--:|--:|--:|")
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "report.html"
        subprocess.run([make_report, "sample", "0", str(path)], check=True)
        empty = path.stat().st_size
        for entries in (10_000, 100_000, 1_000_000):
            subprocess.run([make_report, "sample", str(entries), str(path)], check=True)
            times = [statistics.median(values) for values in zip(*(measure(path) for _ in range(rounds)))]
            print(f"| {entries:,} | {path.stat().st_size / 1e6:.1f} MB | {overhead(path, empty, entries):.1f} bytes | "
                  f"{times[0]:.0f} ms | {times[1]:.0f} ms | {times[2]:.0f} ms | {times[3]:.1f} ms | {times[4]:.1f} ms |")


main(sys.argv[1], int(sys.argv[2]))
