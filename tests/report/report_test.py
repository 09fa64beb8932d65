"""report_test.py MAKE_REPORT RESULTS [TEST...]: opens reports in Chromium and uses them as a reader does."""

import base64
import os
import re
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path
from xml.etree import ElementTree

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

MAKE_REPORT, RESULTS = sys.argv[1:3]
FOLDER = tempfile.TemporaryDirectory()
PATIENCE = 60  # seconds

# Answers at the second frame from now, when all that was to be drawn is drawn.
DRAWN = "requestAnimationFrame(() => requestAnimationFrame(() => arguments[arguments.length - 1]()));"

# What a page does that its policy forbids, from its first moment on, and each dialog it opens.
WATCH = """
    window.seen = [];
    addEventListener("securitypolicyviolation", event => seen.push("violation " + event.violatedDirective));
    addEventListener("error", event => seen.push("error " + event.message), true);
    for (const name of ["alert", "confirm", "prompt"])
        window[name] = () => seen.push(name);
"""


def make_report(*kind):
    path = Path(FOLDER.name) / ("-".join(kind) + ".html")
    if not path.exists():
        subprocess.run([MAKE_REPORT, *kind, str(path)], check=True)
    return path


def start_browser():
    options = Options()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     "--window-size=1366,1000", "--force-device-scale-factor=1", "--lang=en"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    browser.set_page_load_timeout(PATIENCE)
    browser.set_script_timeout(PATIENCE)
    browser.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": WATCH})
    return browser


class ReportTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = start_browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def setUp(self):
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": "", "features": []})
        self.browser.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})

    # Nothing that a test does may run a foreign script or load anything.
    def tearDown(self):
        self.assertEqual(self.run_script("return seen"), [])
        self.assertEqual(self.run_script("return performance.getEntriesByType('resource').length"), 0)
        self.assertEqual([entry["message"] for entry in self.browser.get_log("browser")], [])

    def open(self, *kind):
        self.open_file(make_report(*kind))

    def open_file(self, path):
        self.browser.get(path.as_uri())
        self.browser.execute_async_script(DRAWN)

    def run_script(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def find(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def find_all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def wait_until(self, condition, message=""):
        WebDriverWait(self.browser, PATIENCE, 0.05).until(lambda _: condition(), message)

    def press(self, *keys):
        for key in keys:
            ActionChains(self.browser).send_keys(key).perform()

    def emulate(self, media="", scheme=""):
        features = [{"name": "prefers-color-scheme", "value": scheme}] if scheme else []
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": media, "features": features})

    def set_size(self, width, height):
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})
        self.browser.execute_async_script(DRAWN)

    # The rows that are drawn, without the one that is kept for the focus.
    def rows(self, column="name bdi"):
        return self.run_script(
            "return [...document.querySelectorAll('#layer .row:not(.away) .' + arguments[0])].map(each => each.textContent)",
            column)

    def row(self, name):
        row = self.run_script("return [...document.querySelectorAll('#layer .row')].find("
                              "each => each.querySelector('.name bdi').textContent === arguments[0])", name)
        self.assertIsNotNone(row, f"no row {name} in {self.rows()}")
        return row

    def click_row(self, name):
        self.row(name).find_element(By.CSS_SELECTOR, "bdi").click()

    def focused(self):
        return self.run_script("return document.activeElement.querySelector('.name bdi')?.textContent ?? "
                               "document.activeElement.id")

    def attributes(self, name, *attributes):
        row = self.row(name)
        return [row.get_attribute(attribute) for attribute in attributes]

    def search(self, text):
        box = self.find("#search")
        box.clear()
        box.send_keys(text)

    def found(self):
        return self.find("#found").text

    def rectangles(self):
        return self.run_script("return [...document.querySelectorAll('#map button')].map(each => "
                               "each.getAttribute('aria-label').split(',')[0])")

    def rectangle(self, name):
        rectangle = self.run_script("return [...document.querySelectorAll('#map button')].find("
                                    "each => each.getAttribute('aria-label').startsWith(arguments[0] + ','))", name)
        self.assertIsNotNone(rectangle, f"no rectangle {name} in {self.rectangles()}")
        return rectangle

    def click_rectangle(self, name):
        self.run_script("arguments[0].scrollIntoView({block: 'center'})", self.rectangle(name))
        # A folder shows its name above what it contains.
        ActionChains(self.browser).move_to_element_with_offset(
            self.rectangle(name), 0, 6 - self.rectangle(name).size["height"] // 2).click().perform()

    def crumbs(self):
        return self.run_script("return [...document.querySelectorAll('#crumbs bdi')].map(each => each.textContent)")


AllRows = ["Photos", "2025", "beach.jpg", "dunes.JPG", "2026", "party.jpg", "cover.png", "Music", "song10.mp3",
           "song2.mp3", "Empty", "Private", "notes (old).txt", "Readme.md", "data"]
TopRows = ["Photos", "Music", "Empty", "Private", "notes (old).txt", "Readme.md", "data"]


class SmallReport(ReportTest):
    def setUp(self):
        super().setUp()
        self.open("small")

    def test_the_header_has_the_folder_the_moment_and_the_totals(self):
        self.assertEqual(self.find("h1").text, "C:\\Data")
        self.assertEqual(self.browser.title, "C:\\Data - Tamblewick 4.0.1")
        self.assertEqual(self.find("#about").text, "Made 2025-12-30 00:00 with the preset “Everything”")
        self.assertEqual(self.find("#totals").text.split("\n"),
                         ["Size", "1.0 MiB", "Files", "9", "Folders", "6", "Folders without access", "1"])
        self.assertEqual(self.find("#totals dd").get_attribute("title"), "1,050,000 bytes")
        self.assertFalse(self.find("#incomplete").is_displayed())
        self.assertEqual(self.find_all("#opening"), [])

    def test_the_table_begins_with_the_closed_folders_in_the_order_of_the_list(self):
        self.assertEqual(self.rows(), TopRows)
        cells = [cell.text for cell in self.row("Photos").find_elements(By.CSS_SELECTOR, "[role=gridcell]")]
        self.assertEqual(cells[1:], ["976.6 KiB", "95.2 %", "2020-01-01 00:00", "", "4", "2"])
        cells = [cell.text for cell in self.row("data").find_elements(By.CSS_SELECTOR, "[role=gridcell]")]
        self.assertEqual(cells, ["data", "38.1 KiB", "3.7 %", "2020-01-01 00:08", "2020-01-01 00:00", "", ""])
        self.assertEqual(self.row("Readme.md").find_element(By.CSS_SELECTOR, ".size").text, "900 bytes")

    def test_the_bar_is_the_share_of_the_parent(self):
        self.click_row("Photos")
        widths = self.run_script("""
            const bar = arguments[0].querySelector(".bar");
            return [bar.firstChild.getBoundingClientRect().width, bar.getBoundingClientRect().width]""",
            self.row("2025"))
        self.assertAlmostEqual(widths[0] / widths[1], 0.9, 2)

    def test_folders_that_could_not_be_read_are_marked(self):
        marked = [name for name in TopRows
                  if self.row(name).find_element(By.CSS_SELECTOR, ".badge").is_displayed()]
        self.assertEqual(marked, ["Private"])

    def test_a_click_opens_and_closes_a_folder(self):
        self.click_row("Photos")
        self.assertEqual(self.rows(), ["Photos", "2025", "2026", "cover.png"] + TopRows[1:])
        self.click_row("2025")
        self.assertEqual(self.rows()[:5], ["Photos", "2025", "beach.jpg", "dunes.JPG", "2026"])
        self.click_row("Photos")
        self.assertEqual(self.rows(), TopRows)
        # What was open inside is open again.
        self.click_row("Photos")
        self.assertEqual(self.rows()[2], "beach.jpg")

    def test_all_folders_open_and_close_at_once(self):
        self.find("#open-all").click()
        self.assertEqual(self.rows(), AllRows)
        self.find("#close-all").click()
        self.assertEqual(self.rows(), TopRows)

    def test_rows_have_their_place_in_the_tree(self):
        places = ("aria-level", "aria-posinset", "aria-setsize", "aria-expanded", "aria-rowindex")
        self.assertEqual(self.attributes("Music", *places), ["1", "2", "7", "false", "3"])
        self.assertEqual(self.attributes("Empty", *places), ["1", "3", "7", None, "4"])
        self.click_row("Photos")
        self.assertEqual(self.attributes("Photos", *places), ["1", "1", "7", "true", "2"])
        self.assertEqual(self.attributes("cover.png", *places), ["2", "3", "3", None, "5"])
        self.assertEqual(self.find("#grid").get_attribute("aria-rowcount"), "11")
        self.assertEqual(self.find("#grid").get_attribute("aria-colcount"), "7")

    def test_a_screen_reader_finds_a_treegrid(self):
        tree = self.browser.execute_cdp_cmd("Accessibility.getFullAXTree", {})["nodes"]
        roles = [node["role"]["value"] for node in tree if not node["ignored"]]
        names = {node["name"]["value"] for node in tree if not node["ignored"] and "name" in node}
        self.assertEqual(roles.count("treegrid"), 1)
        self.assertEqual(roles.count("columnheader") - len(self.find_all("th")), 7)
        self.assertEqual(roles.count("gridcell"), 7 * 7)
        self.assertIn("beach.jpg, 585.9 KiB, 66.7 % of 2025", names)
        self.assertIn("Search names", names)

    def test_the_arrow_keys_walk_through_the_tree(self):
        self.find("#close-all").send_keys(Keys.TAB)
        for _ in range(7):
            self.press(Keys.TAB)
        self.assertEqual(self.focused(), "Photos")
        for key, focused, count in (
                (Keys.ARROW_RIGHT, "Photos", 10), (Keys.ARROW_RIGHT, "2025", 10), (Keys.ENTER, "2025", 12),
                (Keys.ARROW_DOWN, "beach.jpg", 12), (Keys.ARROW_RIGHT, "beach.jpg", 12), (Keys.ENTER, "beach.jpg", 12),
                (Keys.ARROW_LEFT, "2025", 12), (Keys.ARROW_LEFT, "2025", 10), (Keys.SPACE, "2025", 12),
                (Keys.SPACE, "2025", 10), (Keys.ARROW_LEFT, "Photos", 10), (Keys.ARROW_UP, "Photos", 10),
                (Keys.END, "data", 10), (Keys.ARROW_DOWN, "data", 10), (Keys.ARROW_UP, "Readme.md", 10),
                (Keys.HOME, "Photos", 10), (Keys.ARROW_LEFT, "Photos", 7), (Keys.ARROW_LEFT, "Photos", 7)):
            self.press(key)
            self.assertEqual((self.focused(), len(self.rows())), (focused, count), repr(key))

    def test_one_row_takes_the_focus(self):
        self.click_row("Music")
        self.assertEqual([row.find_element(By.CSS_SELECTOR, "bdi").text
                          for row in self.find_all("#layer [tabindex='0']")], ["Music"])
        self.assertEqual(self.focused(), "Music")
        self.assertEqual(self.run_script("return getComputedStyle(document.activeElement).outlineStyle"), "none")
        self.press(Keys.ARROW_DOWN)
        self.assertEqual(self.run_script("return getComputedStyle(document.activeElement).outlineStyle"), "solid")

    def test_the_folder_of_a_closed_row_takes_the_focus(self):
        self.click_row("Photos")
        self.click_row("cover.png")
        self.press(Keys.ARROW_LEFT, Keys.ARROW_LEFT)
        self.assertEqual((self.focused(), self.rows()), ("Photos", TopRows))

    def heading(self, title):
        for heading in self.find_all("#head [role=columnheader]"):
            if heading.text.split(" ")[0] == title:
                return heading
        self.fail(f"no heading {title}")

    def sort(self, title):
        self.heading(title).find_element(By.CSS_SELECTOR, "button").click()
        return self.heading(title).get_attribute("aria-sort")

    def test_a_click_on_a_heading_sorts_within_each_folder(self):
        self.find("#open-all").click()
        self.assertEqual(self.sort("Size"), "descending")
        self.assertEqual(self.rows(), ["Photos", "2025", "beach.jpg", "dunes.JPG", "2026", "party.jpg", "cover.png",
                                       "data", "Music", "song2.mp3", "song10.mp3", "Readme.md", "notes (old).txt",
                                       "Empty", "Private"])
        self.assertEqual(self.sort("Size"), "ascending")
        self.assertEqual(self.rows(), ["Empty", "Private", "notes (old).txt", "Readme.md", "Music", "song10.mp3",
                                       "song2.mp3", "data", "Photos", "2026", "party.jpg", "cover.png", "2025",
                                       "dunes.JPG", "beach.jpg"])
        self.assertIsNone(self.sort("Size"))
        self.assertEqual(self.rows(), AllRows)

    def test_names_sort_with_folders_first_and_digits_as_numbers(self):
        self.click_row("Music")
        self.assertEqual(self.sort("Name"), "ascending")
        self.assertEqual(self.rows(), ["Empty", "Music", "song2.mp3", "song10.mp3", "Photos", "Private", "data",
                                       "notes (old).txt", "Readme.md"])
        self.assertEqual(self.sort("Name"), "descending")
        self.assertEqual(self.rows(), ["Private", "Photos", "Music", "song10.mp3", "song2.mp3", "Empty", "Readme.md",
                                       "notes (old).txt", "data"])

    def test_times_and_counts_sort(self):
        self.sort("Modified")
        self.assertEqual(self.rows(), ["Readme.md", "data", "notes (old).txt", "Photos", "Music", "Empty", "Private"])
        self.sort("Files")
        self.assertEqual(self.rows()[:2], ["Photos", "Music"])
        self.assertIsNone(self.heading("Modified").get_attribute("aria-sort"))
        self.sort("Folders")
        self.assertEqual(self.rows()[0], "Photos")

    def test_sorting_keeps_the_active_row(self):
        self.click_row("data")
        self.sort("Size")
        self.assertEqual(self.find("#layer .active bdi").text, "data")

    def test_the_search_shows_matches_with_the_folders_around_them(self):
        self.search("jpg")
        self.wait_until(lambda: self.found() == "3 matches")
        self.assertEqual(self.rows(), ["Photos", "2025", "beach.jpg", "dunes.JPG", "2026", "party.jpg"])
        self.assertEqual(self.attributes("2026", "aria-posinset", "aria-setsize"), ["2", "2"])
        self.assertEqual([mark.text for mark in self.find_all("#layer mark")], ["jpg", "JPG", "jpg"])
        self.find("#search").send_keys(Keys.ESCAPE)
        self.assertEqual((self.rows(), self.found(), self.find("#search").get_property("value")), (TopRows, "", ""))
        self.assertEqual(self.find_all("#layer mark"), [])

    def test_the_search_takes_each_character_as_it_is(self):
        for text, expected in (("(old).", 1), ("*", 0), (".", 8), ("[a-z]", 0), ("PHOTOS", 1), ("\\", 0)):
            self.search(text)
            shown = "1 match" if expected == 1 else f"{expected} matches" if expected else "No name has this text."
            self.wait_until(lambda: self.found() == shown, f"{text}: {shown}")
        self.assertEqual(self.rows(), [])

    def test_a_folder_that_was_found_opens_in_whole(self):
        self.search("music")
        self.wait_until(lambda: self.found() == "1 match")
        self.assertEqual(self.rows(), ["Music"])
        self.find("#search").send_keys(Keys.ARROW_DOWN)
        self.press(Keys.ARROW_RIGHT)
        self.assertEqual(self.rows(), ["Music", "song10.mp3", "song2.mp3"])

    def test_a_key_goes_to_the_search_and_another_ends_it(self):
        self.click_row("Music")
        self.press("/")
        self.assertEqual(self.run_script("return document.activeElement.id"), "search")
        self.press("beach")
        self.wait_until(lambda: self.found() == "1 match")
        self.press(Keys.ENTER)
        self.assertEqual(self.focused(), "Photos")
        self.press(Keys.ESCAPE)
        self.assertEqual(self.found(), "")
        self.assertEqual(self.rows()[0], "Photos")

    def test_the_treemap_has_rectangles_of_the_sizes(self):
        areas = {name: self.rectangle(name).rect for name in ("beach.jpg", "dunes.JPG", "party.jpg")}
        area = {name: rect["width"] * rect["height"] for name, rect in areas.items()}
        self.assertAlmostEqual(area["beach.jpg"] / area["dunes.JPG"], 2, delta=0.2)
        self.assertGreater(area["dunes.JPG"], 3 * area["party.jpg"])
        for name in ("Photos", "2025", "cover.png", "data"):
            self.rectangle(name)
        outer, inner = self.rectangle("2025").rect, areas["beach.jpg"]
        self.assertGreaterEqual(inner["x"], outer["x"])
        self.assertLessEqual(inner["y"] + inner["height"], outer["y"] + outer["height"] + 1)

    def test_clicks_in_the_treemap_go_into_a_folder_and_up_again(self):
        self.click_rectangle("2025")
        self.assertEqual(self.crumbs(), ["C:\\Data", "Photos", "2025"])
        self.assertEqual(self.rectangles(), ["beach.jpg", "dunes.JPG"])
        # The table shows the folder too.
        self.assertEqual(self.find("#layer .active bdi").text, "2025")
        self.find_all("#crumbs button")[1].click()
        self.assertEqual(self.crumbs(), ["C:\\Data", "Photos"])
        self.find_all("#crumbs button")[0].click()
        self.assertEqual(self.crumbs(), ["C:\\Data"])
        self.rectangle("data")

    def test_a_click_on_a_file_in_the_treemap_shows_it_in_the_table(self):
        self.search("music")
        self.wait_until(lambda: self.found() == "1 match")
        self.click_rectangle("party.jpg")
        self.assertEqual(self.focused(), "party.jpg")
        self.assertEqual(self.find("#search").get_property("value"), "")
        self.assertIn("highlighted", self.rectangle("party.jpg").get_attribute("class"))

    def test_the_treemap_shows_the_folder_that_is_chosen_in_the_table(self):
        self.click_row("Music")
        self.wait_until(lambda: self.crumbs() == ["C:\\Data", "Music"])
        self.assertEqual(self.rectangles(), ["song2.mp3", "song10.mp3"])
        self.click_row("Empty")
        self.wait_until(lambda: self.crumbs() == ["C:\\Data", "Empty"])
        self.assertEqual(self.find("#map").text, "Nothing in this folder takes space.")

    def test_the_treemap_is_used_by_keyboard(self):
        self.run_script("document.querySelector('#map [tabindex=\"0\"]').focus()")
        focused = lambda: self.run_script("return document.activeElement.getAttribute('aria-label')").split(",")[0]
        self.assertEqual(focused(), "Photos")
        self.press(Keys.ARROW_RIGHT)
        self.assertEqual(focused(), "2025")
        self.press(Keys.ENTER)
        self.assertEqual(self.crumbs()[-1], "2025")
        self.assertEqual(focused(), "beach.jpg")
        self.press(Keys.END)
        self.assertEqual(focused(), "dunes.JPG")
        self.press(Keys.BACK_SPACE)
        self.assertEqual(self.crumbs()[-1], "Photos")

    def test_the_largest_files_are_listed_and_shown_in_the_table(self):
        names = [name.text for name in self.find_all("#largest-files button")]
        self.assertEqual(names, ["beach.jpg", "dunes.JPG", "party.jpg", "cover.png", "data", "song2.mp3", "song10.mp3",
                                 "Readme.md", "notes (old).txt"])
        self.assertEqual(self.find("#largest-files .path").text, "Photos\\2025")
        self.find_all("#largest-files button")[1].click()
        self.assertEqual(self.focused(), "dunes.JPG")
        self.assertEqual(self.crumbs()[-1], "2025")

    def test_sizes_are_added_up_by_extension(self):
        rows = [[cell.text for cell in row.find_elements(By.CSS_SELECTOR, "td")]
                for row in self.find_all("#extension-sizes tr")]
        self.assertEqual(rows, [
            [".jpg", "927.7 KiB", "90.5 %", "3"], [".png", "48.8 KiB", "4.8 %", "1"],
            ["without", "38.1 KiB", "3.7 %", "1"], [".mp3", "9.8 KiB", "1.0 %", "2"],
            [".md", "900 bytes", "0.1 %", "1"], [".txt", "100 bytes", "< 0.1 %", "1"]])

    # The colours of text and of what is directly below it, as the formula of the Web Content Accessibility Guidelines
    # compares them.
    def contrasts(self):
        return self.run_script("""
            const light = colour => colour.match(/[0-9.]+/g).slice(0, 3).map(each => each / 255)
                .map(each => each <= 0.04045 ? each / 12.92 : ((each + 0.055) / 1.055) ** 2.4)
                .reduce((sum, each, i) => sum + each * [0.2126, 0.7152, 0.0722][i], 0);
            const ground = element => {
                const colour = getComputedStyle(element).backgroundColor;
                return colour === "rgba(0, 0, 0, 0)" ? ground(element.parentElement) : colour;
            };
            const contrasts = {};
            const texts = document.createTreeWalker(document.getElementById("page"), NodeFilter.SHOW_TEXT);
            while (texts.nextNode()) {
                const element = texts.currentNode.parentElement;
                if (texts.currentNode.data.trim() === "" || element.getClientRects().length === 0)
                    continue;
                const [a, b] = [light(getComputedStyle(element).color), light(ground(element))];
                contrasts[texts.currentNode.data] = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
            }
            return [contrasts, light(getComputedStyle(document.body).backgroundColor)];""")

    def test_text_has_contrast_in_light_and_in_dark(self):
        for scheme in ("light", "dark"):
            self.emulate(scheme=scheme)
            self.search("jpg")
            self.wait_until(lambda: self.found() == "3 matches")
            contrasts, ground = self.contrasts()
            self.assertGreater(len(contrasts), 60)
            self.assertEqual({text: ratio for text, ratio in contrasts.items() if ratio < 4.5}, {}, scheme)
            self.assertTrue(ground > 0.8 if scheme == "light" else ground < 0.05, scheme)

    def test_paper_is_white_in_dark_too_and_without_controls(self):
        self.emulate(media="print", scheme="dark")
        contrasts, ground = self.contrasts()
        self.assertEqual(ground, 1)
        self.assertEqual({text: ratio for text, ratio in contrasts.items() if ratio < 4.5}, {})
        self.assertFalse(self.find("#search").is_displayed())
        self.assertTrue(self.find("#map").is_displayed())
        self.assertEqual(self.run_script("return getComputedStyle(document.querySelector('h1')).color"), "rgb(0, 0, 0)")

    def test_nothing_is_cut_off_or_squeezed_on_paper(self):
        self.open("sample", "500")
        # The width of A4 between its margins.
        self.set_size(718, 1000)
        self.emulate(media="print")
        self.run_script("document.getElementById('open-all').click(); dispatchEvent(new Event('beforeprint'))")
        cut = self.run_script("""return [...document.querySelectorAll("#layer .row > *, #head .row > *, td, .amount")]
            .filter(each => each.scrollWidth > each.clientWidth && each.clientWidth > 0).map(each => each.textContent)""")
        self.assertEqual(cut, [])
        lines = self.run_script("""return [...document.querySelectorAll("#largest-files tr, #extension-sizes tr")]
            .map(row => row.getBoundingClientRect().height / parseFloat(getComputedStyle(row).lineHeight))""")
        self.assertLess(max(lines), 3)
        self.assertLess(sorted(lines)[len(lines) // 2], 1.8)

    def test_it_fits_a_narrow_window(self):
        self.set_size(320, 700)
        widths = self.run_script("return [document.documentElement.scrollWidth, innerWidth]")
        self.assertLessEqual(widths[0], widths[1])
        self.assertTrue(self.row("Photos").is_displayed())
        size = self.row("Photos").find_element(By.CSS_SELECTOR, ".size").rect
        self.assertLessEqual(size["x"] + size["width"], 320)

    def test_text_grows_with_the_text_size_of_the_reader(self):
        heights = []
        for size in ("100%", "200%"):
            self.run_script("document.documentElement.style.fontSize = arguments[0]", size)
            self.browser.execute_async_script(DRAWN)
            first, second = self.run_script("""
                return [...document.querySelectorAll("#layer .row")].slice(0, 2).map(each => each.getBoundingClientRect())""")
            heights.append(first["height"])
            self.assertAlmostEqual(second["y"] - first["y"], first["height"], 3)
        self.assertAlmostEqual(heights[1] / heights[0], 2, delta=0.02)

    def test_there_are_no_handlers_in_attributes(self):
        self.find("#open-all").click()
        names = self.run_script("""return [...new Set([...document.querySelectorAll("*")].flatMap(
            each => each.getAttributeNames()))]""")
        self.assertIn("role", names)
        self.assertEqual([name for name in names if name.startswith("on")], [])


class HostileNames(ReportTest):
    # The root, and what the folder contains; the page must show them as they are, but for half surrogate pairs and the
    # separator of names.
    ROOT = "C:\\</script>\\<img src=x onerror=alert(1)>"
    NAMES = ["<img src=x onerror=alert(1)>.png", "</script><script>alert(1)</script>", "<!--<script>alert(1)",
             "-->&lt;b&gt;&amp;", "'\"><svg onload=alert(1)>", "{{data}}", "javascript:alert(1)", "__proto__",
             "constructor.__proto__", "photo\u202Egpj.exe", "\u2069\u202Eup", "half\uFFFD.txt", "\uFFFDhalf",
             "whole\U0001F600", "two\nlines\r\n.txt", "n\u0001\u0002\u007F\u2028\uFEFF", "w" * 255 + ".long",
             "a\uFFFDb", "quote\"back\\slash"]

    def setUp(self):
        super().setUp()
        self.open("hostile")
        self.set_size(1366, 3000)

    def test_names_are_shown_as_text(self):
        self.find("#open-all").click()
        self.browser.execute_async_script(DRAWN)
        expected = ["<b>folder</b></script>", *self.NAMES, "refused", *self.NAMES]
        first = self.rows()
        self.assertEqual(first, expected[:len(first)])
        self.run_script("document.getElementById('viewport').scrollTop = 1e6")
        self.browser.execute_async_script(DRAWN)
        last = self.rows()
        self.assertEqual(last, expected[-len(last):])
        self.assertGreater(len(first) + len(last), len(expected))
        self.assertEqual(self.find("#root").get_property("textContent"), self.ROOT)
        self.assertIn("“</script><script>alert(1)</script>”", self.find("#about").text)
        self.assertEqual(self.run_script("return document.querySelectorAll('img, svg, b, script:not([src])').length"), 2)

    def test_all_parts_of_the_page_show_them(self):
        listed = self.run_script(
            "return [...document.querySelectorAll('#largest-files .name bdi')].map(each => each.textContent)")
        self.assertEqual(set(listed) - set(self.NAMES), set())
        self.assertEqual(set(self.NAMES) - set(listed), set())
        for row in range(3):
            self.run_script("document.querySelectorAll('#map button')[arguments[0]].click()", row)
        self.search("<script>alert(1)<")
        self.wait_until(lambda: self.found() == "2 matches")
        self.search("\u202Egp")
        self.wait_until(lambda: self.found() == "2 matches")

    def test_a_name_that_turns_the_direction_turns_nothing_else(self):
        self.assertEqual(self.run_script("""return [...document.querySelectorAll("bdi")].filter(
            each => getComputedStyle(each).unicodeBidi !== "isolate").length"""), 0)
        attributes = self.run_script("""return [...document.querySelectorAll("*")].flatMap(
            each => each.getAttributeNames().map(name => each.getAttribute(name)))""")
        self.assertTrue(any("gpj.exe" in value for value in attributes))
        self.assertEqual([value for value in attributes if re.search("[\u202A-\u202E\u2066-\u2069]", value)], [])
        outside = self.run_script("""
            const texts = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
            const found = [];
            while (texts.nextNode())
                if (texts.currentNode.data.includes("\\u202E") && !texts.currentNode.parentElement.closest("bdi, script"))
                    found.push(texts.currentNode.data);
            return found""")
        self.assertEqual(outside, [])

    def test_long_names_are_cut_off_and_have_a_tooltip(self):
        name = "w" * 255 + ".long"
        row = self.row(name)
        cell = row.find_element(By.CSS_SELECTOR, ".name")
        self.assertEqual(cell.get_attribute("title"), name)
        self.assertLess(cell.rect["x"] + cell.rect["width"],
                        row.find_element(By.CSS_SELECTOR, ".size").rect["x"] + 1)
        self.assertEqual(len({each.rect["height"] for each in self.find_all("#layer .row")}), 1)


class Policy(ReportTest):
    # What is forbidden is seen as a violation here, as it should be.
    def tearDown(self):
        self.browser.get_log("browser")

    def test_nothing_else_in_the_page_takes_effect(self):
        page = make_report("small").read_text(encoding="utf-8").replace("<body>", """<body onclick="window.foreign = 1">
            <script>window.foreign = 2</script><style>body { opacity: 0 }</style><p style="color: red">
            <img src="data:image/gif;base64,R0lGODlhAQABAAAAACw="><iframe src="data:text/html,x"></iframe>""")
        path = Path(FOLDER.name) / "foreign.html"
        path.write_text(page, encoding="utf-8")
        self.open_file(path)
        self.find("h1").click()
        self.run_script("fetch('data:text/plain,x').catch(() => {})")
        for expected in ("script-src-elem", "script-src-attr", "style-src-elem", "style-src-attr", "img-src", "frame-src",
                         "connect-src"):
            self.wait_until(lambda: "violation " + expected in self.run_script("return seen"), expected)
        self.assertIsNone(self.run_script("return window.foreign ?? null"))
        self.assertEqual(self.run_script("return getComputedStyle(document.body).opacity"), "1")

    def test_text_cannot_become_markup(self):
        self.open("small")
        self.assertEqual(self.run_script("""
            try { document.body.innerHTML = "<p>"; } catch (error) { return error.name; }"""), "TypeError")


class DamagedFiles(ReportTest):
    def damaged(self, name, change):
        text = make_report("sample", "10000").read_text(encoding="utf-8")
        path = Path(FOLDER.name) / name
        path.write_text(change(text), encoding="utf-8")
        return path

    def test_a_file_that_is_cut_off_says_so_wherever_it_ends(self):
        for share in (0.3, 0.7, 0.95, 0.999):
            self.open_file(self.damaged("cut.html", lambda text: text[:int(len(text) * share)]))
            self.assertTrue(self.find("#opening").text.startswith("Opening the report … If this line stays, the file "
                                                                  "is not complete"), share)
            self.assertFalse(self.find("#page").is_displayed(), share)

    def test_a_file_without_some_of_its_data_says_so(self):
        self.open_file(self.damaged("hole.html", lambda text: re.sub(
            r'<script type="application/json" class="block">[^<]*</script>\n(?=<script>/\*)', "", text)))
        self.assertEqual(self.find("#incomplete").text,
                         "This report is not complete: entries of the list are missing.")
        self.assertTrue(self.rows())


class LargeReports(ReportTest):
    def open_timed(self, entries):
        path = make_report("sample", str(entries))
        begin = time.monotonic()
        self.open_file(path)
        print(f"{entries} entries, {path.stat().st_size} bytes: open after {time.monotonic() - begin:.2f} s")

    def row_indexes(self):
        return self.run_script("return [...document.querySelectorAll('#layer .row:not(.away)')].map(each => "
                               "Number(each.getAttribute('aria-rowindex')))")

    # Whether rows without a gap cover the view, and in their order in the document.
    def assert_view_is_covered(self):
        edges = self.run_script("""
            const view = document.getElementById("viewport").getBoundingClientRect();
            const rows = [...document.querySelectorAll("#layer .row:not(.away)")].map(each => each.getBoundingClientRect());
            return [view.top, view.bottom, rows[0].top, rows[rows.length - 1].bottom,
                    document.querySelector("#head").getBoundingClientRect().height]""")
        indexes = self.row_indexes()
        self.assertEqual(indexes, list(range(indexes[0], indexes[0] + len(indexes))))
        self.assertLessEqual(edges[2], edges[0] + edges[4] + 2)
        self.assertGreaterEqual(edges[3], edges[1] - 20)
        self.assertLess(len(indexes), 60)

    def use(self, entries):
        self.open_timed(entries)
        self.assertEqual(self.find_all("#totals dd")[0].text != "0 bytes", True)
        self.find("#open-all").click()
        self.assertEqual(self.find("#grid").get_attribute("aria-rowcount"), str(entries + 1))
        self.browser.execute_async_script(DRAWN)
        self.assert_view_is_covered()

        # By keyboard to the end and back.
        self.run_script("document.querySelector('#layer [tabindex=\"0\"]').focus()")
        self.press(Keys.END)
        self.assertEqual(self.run_script("return document.activeElement.getAttribute('aria-rowindex')"), str(entries + 1))
        self.assert_view_is_covered()
        self.press(Keys.HOME)
        self.assertEqual(self.row_indexes()[0], 2)
        self.press(Keys.PAGE_DOWN, Keys.PAGE_DOWN)
        page = int(self.run_script("return document.activeElement.getAttribute('aria-rowindex')")) - 2
        self.assertTrue(10 < page < 60, page)
        self.assert_view_is_covered()

        # By scroll bar to the middle and to the end. The focus stays where it is.
        for share in (0.5, 1):
            self.run_script("const view = document.getElementById('viewport');"
                            "view.scrollTop = arguments[0] * (view.scrollHeight - view.clientHeight)", share)
            self.browser.execute_async_script(DRAWN)
            self.assert_view_is_covered()
            indexes = self.row_indexes()
            self.assertAlmostEqual(indexes[len(indexes) // 2] / entries, share, delta=0.01)
        self.assertEqual(self.row_indexes()[-1], entries + 1)
        self.assertEqual(self.run_script("return document.activeElement.getAttribute('aria-rowindex')"), str(page + 2))

        # Small movements are those of the wheel, however long the list is.
        self.press(Keys.HOME)
        before = self.find_all("#layer .row:not(.away)")[0].rect["y"]
        self.run_script("document.getElementById('viewport').scrollTop += 100")
        self.browser.execute_async_script(DRAWN)
        self.assertEqual(self.row_indexes()[0], 2)
        self.assertAlmostEqual(before - self.find_all("#layer .row:not(.away)")[0].rect["y"], 100, delta=1)

        self.search(f"{entries}.")
        self.search(f" {entries - 7}")
        self.wait_until(lambda: self.found() == "1 match")
        self.wait_until(lambda: self.rows()[-1].split(".")[0].endswith(f" {entries - 7}"))
        self.find_all("#largest-files button")[0].click()
        self.assertEqual(self.focused(), self.find("#largest-files button").text)
        self.assert_view_is_covered()

    def test_a_hundred_thousand_entries(self):
        self.use(100000)

    def test_a_million_entries(self):
        self.use(1000000)

    def test_the_treemap_of_a_large_list_is_limited(self):
        self.open("sample", "100000")
        self.assertTrue(50 < len(self.rectangles()) <= 601, len(self.rectangles()))

    def test_printing_takes_all_open_rows(self):
        self.open("sample", "500")
        few = self.pages()
        self.find("#open-all").click()
        self.assertLess(len(self.rows()), 60)
        # Some 50 rows fit on a page.
        self.assertTrue(500 / 100 < self.pages() - few < 500 / 25, self.pages() - few)
        self.assertLess(len(self.rows()), 60)

    def test_printing_has_a_limit(self):
        self.open("sample", "10000")
        self.find("#open-all").click()
        self.run_script("dispatchEvent(new Event('beforeprint'))")
        self.assertEqual(len(self.rows()), 2000)
        self.assertEqual(self.find("#cut").text, "The first 2,000 of 10,000 rows are printed.")
        self.run_script("dispatchEvent(new Event('afterprint'))")
        self.assertLess(len(self.rows()), 60)
        self.assertFalse(self.find("#cut").is_displayed())

    # Returns how many pages the report takes on paper.
    def pages(self):
        printed = self.browser.execute_cdp_cmd("Page.printToPDF", {"printBackground": True})
        return len(re.findall(rb"/Type\s*/Page\b", base64.b64decode(printed["data"])))


class XmlResult(unittest.TextTestResult):
    """Keeps what the other test programs report too."""

    def __init__(self, *arguments):
        super().__init__(*arguments)
        self.suite = ElementTree.Element("testsuites")
        self.case = None

    def startTest(self, test):
        super().startTest(test)
        kind, name = test.id().split(".")[-2:]
        self.case = ElementTree.SubElement(self.suite, "testcase", {"classname": kind, "name": name})
        self.begin = time.monotonic()

    def stopTest(self, test):
        super().stopTest(test)
        self.case.set("time", f"{time.monotonic() - self.begin:.3f}")

    def addFailure(self, test, failure):
        super().addFailure(test, failure)
        ElementTree.SubElement(self.case, "failure")

    addError = addFailure

    def write(self, path):
        for name, count in (("tests", self.testsRun), ("failures", len(self.failures)), ("errors", len(self.errors))):
            self.suite.set(name, str(count))
        Path(path).parent.mkdir(parents=True, exist_ok=True)
        ElementTree.indent(self.suite)
        ElementTree.ElementTree(self.suite).write(path)


def main(names):
    module = sys.modules[__name__]
    loader = unittest.defaultTestLoader
    tests = loader.loadTestsFromNames(names, module) if names else loader.loadTestsFromModule(module)
    # As in the other test programs.
    failfast = "GTEST_FAIL_FAST" in os.environ
    result = unittest.TextTestRunner(verbosity=2, resultclass=XmlResult, failfast=failfast).run(tests)
    result.write(RESULTS)
    return 0 if result.wasSuccessful() and result.testsRun > 0 else 1


sys.exit(main(sys.argv[3:]))
