# Compares the examples of docs/formats.md with what the program writes, and runs its commands on them.
#
#   examples.py PROGRAM DOCUMENT RESULTS
#
# The results go to the XML file RESULTS.
import json
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support/python"))
import reported


def blocks(text):
    """The fenced blocks of a document, as pairs of their language and their contents."""
    return re.findall(r"^```(\w+)\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)


class Examples(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.temporary.name)
        cls.blocks = blocks(Path(DOCUMENT).read_text("utf-8"))
        (cls.folder / "presets.json").write_text(cls.block("json"), "utf-8")
        subprocess.run([PROGRAM, cls.folder], check=True)

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    @classmethod
    def block(cls, language):
        [content] = [content for name, content in cls.blocks if name == language]
        return content

    def read(self, name):
        return (self.folder / name).read_bytes().decode("utf-8")

    def test_csv(self):
        self.assertEqual(self.read("list.csv"), self.block("csv").replace("\n", "\r\n"))

    def test_json_lines(self):
        # The moment of the list is that of the stand-in's clock.
        moment = re.compile(r'("preset":"Photos","created":)"[^"]*"')
        self.assertEqual(moment.sub(r"\1", self.read("list.jsonl")), moment.sub(r"\1", self.block("jsonl")))

    def test_comparison(self):
        self.assertEqual(self.read("compared.txt"), self.block("diff"))

    def test_sums(self):
        self.assertEqual(self.read("list.sha256sum"), self.block("sums"))

    def test_hashes(self):
        sums = dict(reversed(line.split(" *")) for line in self.read("list.sha256sum").splitlines())
        objects = [json.loads(line) for line in self.read("hashed.jsonl").splitlines()]
        hashes = {row["path"].replace("\\", "/"): row["sha256"] for row in objects if "sha256" in row}
        self.assertEqual(hashes, sums)
        self.assertEqual(len(sums), 3)
        self.assertEqual(objects[-1]["unreadable_files"], 0)

    def test_presets(self):
        exported = json.loads(self.read("exported.json"))
        shown = json.loads(self.block("json"))
        self.assertEqual((exported["format"], exported["version"]), (shown["format"], shown["version"]))
        [preset] = exported["presets"]
        self.assertIn("Key", preset)
        self.assertIn("Position", preset)
        for section, fields in shown["presets"][0].items():
            if isinstance(fields, dict):
                self.assertEqual({name: preset[section][name] for name in fields}, fields)
            else:
                self.assertEqual(preset[section], fields)

    def test_commands(self):
        commands = 0
        for (language, command), (_, output) in zip(self.blocks, self.blocks[1:]):
            if language != "sh":
                continue
            commands += 1
            with self.subTest(command=command):
                ran = subprocess.run(["bash", "-euo", "pipefail", "-c", command], cwd=self.folder, check=True,
                                     capture_output=True)
                self.assertEqual(ran.stdout.decode("utf-8"), output)
        self.assertGreater(commands, 3)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    DOCUMENT = sys.argv.pop(1)
    reported.main()
