# Reads lists of hostile names back with the readers that people use, and compares each row with what was written:
# Python's csv and json, jq and sqlite3.
#
#   read_back.py PROGRAM RESULTS
#
# The results go to the XML file RESULTS.
import csv
import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support/python"))
import reported

FORMULA_STARTS = ("=", "+", "-", "@", "\t")


def valid(units):
    """The text of UTF-16 units, with each half of a surrogate pair replaced."""
    text = b"".join(unit.to_bytes(2, "little") for unit in units).decode("utf-16-le", "surrogatepass")
    return "".join("\ufffd" if "\ud800" <= character <= "\udfff" else character for character in text)


def read_expected(file):
    rows = []
    for line in file.read_text("ascii").splitlines():
        kind, *units = line.split(" ")
        units = [int(unit, 16) for unit in units]
        text = valid(units)
        lossy = text.encode("utf-16-le") != b"".join(unit.to_bytes(2, "little") for unit in units)
        rows.append((kind, text, lossy))
    return rows


class ReadBack(unittest.TestCase):
    maxDiff = 2000

    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.temporary.name)
        subprocess.run([PROGRAM, cls.folder], check=True)
        cls.expected = read_expected(cls.folder / "paths.txt")

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def expected_paths(self):
        return [(kind, path) for kind, path, lossy in self.expected]

    def test_python_reads_the_csv(self):
        with open(self.folder / "table.csv", encoding="utf-8", newline="") as file:
            rows = list(csv.DictReader(file, strict=True))
        self.assertEqual([(row["type"], row["path"]) for row in rows], self.expected_paths())
        for row in rows:
            self.assertTrue(row["path"].endswith(row["name"]), row)
            self.assertTrue(row["name"].endswith(row["extension"]), row)
            self.assertNotIn(None, row.values())
            self.assertEqual(row["files"] == "", row["type"] == "file")

    def test_python_reads_the_csv_for_excel(self):
        content = (self.folder / "excel.csv").read_bytes()
        self.assertEqual(content[:3], b"\xef\xbb\xbf")
        with open(self.folder / "excel.csv", encoding="utf-8-sig", newline="") as file:
            rows = list(csv.DictReader(file, delimiter=";", strict=True))
        guarded = [(kind, "'" + path if path.startswith(FORMULA_STARTS) else path)
                   for kind, path in self.expected_paths()]
        self.assertEqual([(row["type"], row["path"]) for row in rows], guarded)

    def test_python_reads_the_json_lines(self):
        lines = (self.folder / "table.jsonl").read_bytes().split(b"\n")
        self.assertEqual(lines.pop(), b"")
        objects = [json.loads(line.decode("utf-8")) for line in lines]
        self.assertEqual((objects[0]["type"], objects[0]["format"]), ("list", 1))
        self.assertEqual(objects[-1]["type"], "summary")
        self.assertEqual(objects[-1]["files"] + objects[-1]["folders"], len(objects) - 2)
        read = [(row["type"], row["path"], row.get("lossy", False)) for row in objects[1:-1]]
        self.assertEqual(read, self.expected)
        for row in objects[1:-1]:
            self.assertEqual("files" in row, row["type"] == "directory")

    def test_jq_reads_the_json_lines(self):
        read = subprocess.run(["jq", "-c", "select(.path != null) | [.type, .path]", self.folder / "table.jsonl"],
                              check=True, capture_output=True).stdout.decode("utf-8")
        self.assertEqual([tuple(json.loads(line)) for line in read.split("\n") if line], self.expected_paths())

    def test_sqlite_imports_the_csv(self):
        commands = [".import --csv '%s' list" % (self.folder / "table.csv"),
                    "select hex(type), hex(path) from list order by rowid;"]
        read = subprocess.run(["sqlite3", "-bail", ":memory:", *commands], check=True, capture_output=True, text=True)
        self.assertEqual(read.stderr, "")
        rows = [tuple(bytes.fromhex(cell).decode("utf-8") for cell in line.split("|"))
                for line in read.stdout.splitlines()]
        self.assertEqual(rows, self.expected_paths())


PROGRAM = sys.argv.pop(1)
reported.main()
