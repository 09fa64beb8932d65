# Runs the queries of docs/many-machines.md on the lists of a hundred machines at two days, and compares the answers
# with what the lists were made of.
#
#   many_machines.py DOCUMENT MODULES RESULTS
#
# MODULES is the folder in which npm has installed DuckDB; the results go to the XML file RESULTS.
import hashlib
import json
import random
import subprocess
import sys
import tempfile
import unittest
from collections import defaultdict
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support/python"))
import reported
from examples import blocks

OLD, NEW = "2026-11-14", "2026-11-21"
MACHINES = ["pc%03d" % number for number in range(100)]


class Machine:
    """The files of a machine, by path: size, modified, hash."""

    def __init__(self, random_):
        self.files = {}
        for number in range(50):
            self.add(random_, "part%d\\file %d.txt" % (number % 5, number))

    def add(self, random_, path):
        # Few contents, so that there are duplicates.
        content = random_.randrange(2000)
        self.files[path] = (content * 1001, "2026-01-02T08:00:00.%07dZ" % random_.randrange(10 ** 7),
                            hashlib.sha256(b"%d" % content).hexdigest())

    def change(self, random_):
        for path in random_.sample(sorted(self.files), 3):
            if random_.random() < 0.3:
                del self.files[path]
            else:
                self.add(random_, path)
        self.add(random_, "part%d\\new, %d.txt" % (random_.randrange(5), random_.randrange(1000)))

    def folders(self):
        sizes = defaultdict(lambda: [0, 0])
        for path, (size, _, _) in self.files.items():
            folder = sizes[path.partition("\\")[0]]
            folder[0] += size
            folder[1] += 1
        return sizes

    def write(self, path):
        lines = [{"type": "list", "format": 1, "program": "Tamblewick", "root": "D:\\Data", "preset": "p",
                  "created": "2026-11-21T06:00:00.0000000Z"}]
        for name, (size, count) in self.folders().items():
            lines.append({"type": "directory", "path": name, "name": name, "extension": "", "size": size,
                          "modified": "", "files": count, "folders": 0, "depth": 0, "error": ""})
        for name, (size, modified, sha256) in self.files.items():
            lines.append({"type": "file", "path": name, "name": name.rpartition("\\")[2], "extension": "txt",
                          "size": size, "modified": modified, "depth": 1, "error": "", "sha256": sha256})
        lines.append({"type": "summary", "size": 0, "folders": 5, "files": len(self.files), "unreadable": 0})
        path.write_text("".join(json.dumps(line, separators=(",", ":")) + "\n" for line in lines), "utf-8")


class ManyMachines(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.temporary.name)
        text = Path(DOCUMENT).read_text("utf-8")
        cls.queries = [content for language, content in blocks(text) if language == "sql"]
        [cls.shell] = [content for language, content in blocks(text) if language == "sh"]
        random_ = random.Random(1)
        cls.old, cls.new = {}, {}
        for day in (OLD, NEW):
            (cls.folder / "lists" / day).mkdir(parents=True)
        for name in MACHINES:
            machine = Machine(random_)
            machine.write(cls.folder / "lists" / OLD / (name + ".jsonl"))
            cls.old[name] = dict(machine.files)
            machine.change(random_)
            machine.write(cls.folder / "lists" / NEW / (name + ".jsonl"))
            cls.new[name] = machine

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def query(self, number):
        ran = subprocess.run(["node", Path(__file__).parent / "query.mjs", MODULES], cwd=self.folder, check=True,
                             input=self.queries[number].encode("utf-8"), capture_output=True)
        return json.loads(ran.stdout)

    def largest_folders(self):
        folders = [(name, folder, size, count) for name, machine in self.new.items()
                   for folder, (size, count) in machine.folders().items()]
        return sorted(folders, key=lambda row: (-row[2], row[0], row[1]))

    def test_largest_folders(self):
        self.assertEqual([(machine, path, int(size), int(files)) for machine, path, size, files in self.query(0)],
                         self.largest_folders()[:5])

    def test_duplicates(self):
        copies = defaultdict(list)
        for machine in self.new.values():
            for size, _, sha256 in machine.files.values():
                copies[sha256].append(size)
        spare = sorted(((len(sizes) - 1) * sizes[0] for sizes in copies.values() if len(sizes) > 1), reverse=True)
        rows = self.query(1)
        self.assertEqual([int(row[2]) for row in rows], spare[:5])
        for name, count, _ in rows:
            self.assertRegex(name, r"^(file|new,) \d+\.txt$")
            self.assertGreater(int(count), 1)

    def test_changes(self):
        expected = []
        for name in MACHINES:
            old, new = self.old[name], self.new[name].files
            for path in sorted(set(old) | set(new)):
                if path not in old:
                    expected.append([name, path, "added"])
                elif path not in new:
                    expected.append([name, path, "removed"])
                elif old[path][:2] != new[path][:2]:
                    expected.append([name, path, "changed"])
        self.assertGreater(len(expected), 300)
        self.assertEqual(self.query(2), expected)

    def test_incomplete_lists(self):
        self.assertEqual(self.query(3), [])
        list_ = self.folder / "lists" / NEW / "pc042.jsonl"
        whole = list_.read_text("utf-8")
        list_.write_text("".join(whole.splitlines(keepends=True)[:-1]), "utf-8")
        try:
            self.assertEqual(self.query(3), [["pc042"]])
        finally:
            list_.write_text(whole, "utf-8")

    def test_sqlite(self):
        ran = subprocess.run(["bash", "-euo", "pipefail", "-c", self.shell], cwd=self.folder, check=True,
                             capture_output=True)
        self.assertEqual(ran.stderr, b"")
        rows = [tuple(line.split("|")) for line in ran.stdout.decode("utf-8").splitlines()]
        self.assertEqual(rows, [(machine, path, str(size)) for machine, path, size, _ in self.largest_folders()[:3]])


if __name__ == "__main__":
    DOCUMENT = sys.argv.pop(1)
    MODULES = sys.argv.pop(1)
    reported.main()
