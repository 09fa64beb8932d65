#!/usr/bin/env python3
"""The pages of docs/ and README.md: links, the picture of the sources, the task for the Task Scheduler, and what they
tell to run on Linux."""

import re
import subprocess
import sys
import unittest
from pathlib import Path
from textwrap import dedent
from xml.etree import ElementTree

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support" / "python"))
import reported  # noqa: E402
from reported import Root  # noqa: E402

Pages = [Root / "README.md", *sorted((Root / "docs").glob("*.md"))]


def blocks(page):
    """The fenced blocks of a page: what follows the first fence, and the contents."""
    found = re.findall(r"^( *)```(.*?)\n(.*?)^\1```$", page.read_text(), re.M | re.S)
    return [(kind, dedent(text)) for _, kind, text in found]


class Documents(unittest.TestCase):
    def test_links_lead_to_files(self):
        for page in Pages:
            for link in re.findall(r"\]\(([^)#]+)\)", page.read_text()):
                if not re.match(r"\w+:", link):
                    self.assertTrue((page.parent / link).exists(), f"{page.name}: {link}")

    def test_are_reachable_from_the_readme(self):
        reached = set()
        waiting = [Pages[0]]
        while waiting:
            page = waiting.pop()
            if page not in reached:
                reached.add(page)
                waiting += [(page.parent / link).resolve()
                            for link in re.findall(r"\]\(([^)#:]+\.md)\)", page.read_text())]
        self.assertEqual([page.name for page in Pages if page not in reached], [])

    # Commands under another name would not be run by any test: "bat" is run by tests/packages, "sh" here.
    def test_commands_are_marked_as_such(self):
        kinds = {kind for page in Pages for kind, _ in blocks(page)}
        self.assertLessEqual({"bat", "sh", "xml"}, kinds)
        self.assertEqual(kinds & {"bash", "shell", "console", "cmd", "batch", "powershell"}, set())

    # tests/formats runs those of the tables on files of its own.
    def test_commands_for_linux_run(self):
        for page in Pages:
            if page.name in {"formats.md", "many-machines.md"}:
                continue
            commands = "".join(text for kind, text in blocks(page) if kind == "sh")
            done = subprocess.run(["bash", "-euo", "pipefail", "-c", commands], cwd=Root, capture_output=True, text=True)
            self.assertEqual(done.returncode, 0, f"{page.name}: {done.stderr}")

    def test_picture_of_the_sources_is_up_to_date(self):
        done = subprocess.run([Root / "scripts" / "draw-architecture.py", "--check"], capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)


Namespace = "{http://schemas.microsoft.com/windows/2004/02/mit/task}"
Flag = "true|false"
Duration = r"P(\d+D)?(T(\d+H)?(\d+M)?(\d+S)?)?"

# The elements of a task in version 1.2 that may be there, with the form of their texts; None for those with children.
Elements = {
    "Task": None,
    "Task/RegistrationInfo": None,
    "Task/RegistrationInfo/Description": r".+",
    "Task/Triggers": None,
    "Task/Triggers/CalendarTrigger": None,
    "Task/Triggers/CalendarTrigger/StartBoundary": r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d",
    "Task/Triggers/CalendarTrigger/ScheduleByDay": None,
    "Task/Triggers/CalendarTrigger/ScheduleByDay/DaysInterval": r"\d+",
    "Task/Settings": None,
    "Task/Settings/MultipleInstancesPolicy": "Parallel|Queue|IgnoreNew|StopExisting",
    "Task/Settings/DisallowStartIfOnBatteries": Flag,
    "Task/Settings/StopIfGoingOnBatteries": Flag,
    "Task/Settings/StartWhenAvailable": Flag,
    "Task/Settings/ExecutionTimeLimit": Duration,
    "Task/Actions": None,
    "Task/Actions/Exec": None,
    "Task/Actions/Exec/Command": r".+",
    "Task/Actions/Exec/Arguments": r".+",
}


class Task(unittest.TestCase):
    def setUp(self):
        [self.text] = [text for kind, text in blocks(Root / "docs" / "task-scheduler.md") if kind == "xml"]

    # A file without a byte-order mark and without an encoding is read as UTF-8: only ASCII is the same everywhere.
    def test_can_be_saved_in_any_encoding(self):
        self.assertTrue(self.text.startswith('<?xml version="1.0"?>\n'))
        self.assertTrue(self.text.isascii())

    def test_has_the_structure_of_a_task(self):
        task = ElementTree.fromstring(self.text)
        self.assertEqual(task.attrib, {"version": "1.2"})

        def visit(element, parent):
            self.assertTrue(element.tag.startswith(Namespace), element.tag)
            path = parent + element.tag[len(Namespace):]
            self.assertIn(path, Elements)
            if Elements[path] is None:
                self.assertGreater(len(element), 0, path)
                self.assertEqual((element.text or "").strip(), "", path)
            else:
                self.assertEqual(len(element), 0, path)
                self.assertRegex(element.text, f"^({Elements[path]})$", path)
            names = [child.tag for child in element]
            self.assertEqual(len(names), len(set(names)), path)
            for child in element:
                visit(child, path + "/")

        visit(task, "")
        for required in ["Triggers", "Settings", "Actions"]:
            self.assertIsNotNone(task.find(Namespace + required))

    def test_runs_the_companion_where_the_setup_installs_it(self):
        task = ElementTree.fromstring(self.text)
        command = task.find(f".//{Namespace}Arguments").text
        folder = re.search(r'^InstallDir "\$LOCALAPPDATA(.*)"$', (Root / "packaging" / "setup.nsi").read_text(), re.M)
        self.assertIn(f'"%LOCALAPPDATA%{folder.group(1)}\\tamblewickc.exe" list Photos', command)


if __name__ == "__main__":
    reported.main()
