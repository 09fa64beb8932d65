#!/usr/bin/env python3
"""THIRD-PARTY.txt names everything from others that the programs contain."""

import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from finished import Build, Packages, Portable, Programs, Root, contents
import reported

Script = Root / "packaging" / "third-party.py"


def package_of(file):
    """The Debian package of a file; None if it belongs to none."""
    found = subprocess.run(["dpkg-query", "--search", str(Path(file).resolve())], capture_output=True, text=True)
    return re.split("[:,]", found.stdout)[0] if found.returncode == 0 else None


class Notices(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.text = contents(Portable)["tamblewick-4.0.1/THIRD-PARTY.txt"].decode().replace("\r\n", "\n")
        cls.named = set(re.findall(r"^([a-z0-9.+-]+) \S+: \S", cls.text.split("-" * 100)[0], re.M))

    def test_name_the_library_of_each_linked_member(self):
        for program in Programs:
            linked = (Build / f"{program}.map").read_text(errors="replace")
            # The names of the import libraries that the build makes are those of the toolchain's.
            libraries = set(re.findall(r"^(/usr/\S+[.]a)\(", linked, re.M))
            names = {Path(library).name for library in libraries}
            self.assertLessEqual({"libstdc++.a", "libgcc.a", "libmingwex.a"}, names)
            for library in libraries:
                self.assertIn(package_of(library), self.named, library)
                self.assertIn(Path(library).name, self.text)

    def test_name_the_package_of_each_header(self):
        objects = subprocess.run(["ninja", "-C", Build, "-t", "deps"], check=True, capture_output=True, text=True)
        headers = set()
        for record in objects.stdout.split("\n\n"):
            if re.match("src/|contextmenu/", record):
                headers |= set(re.findall(r"^    (/usr/\S+)$", record, re.M))
        self.assertGreater(len(headers), 100)
        folders = {Path(header).resolve().parent: header for header in headers}
        for header in folders.values():
            self.assertIn(package_of(header), self.named, header)

    def test_name_what_the_sources_ask_for_by_name(self):
        sources = [file.read_text(errors="replace") for file in (Root / "src").rglob("*")
                   if file.suffix in {".cpp", ".h", ".txt"}]
        asked = {"libutfcpp-dev": "#include <utf8", "nlohmann-json3-dev": "#include <nlohmann/",
                 "node-d3-hierarchy": "/d3-hierarchy"}
        for package, text in asked.items():
            if any(text in source for source in sources):
                self.assertIn(package, self.named)
        self.assertIn("nsis-common", self.named)

    def test_are_complete(self):
        for package in self.named:
            notice = Path(f"/usr/share/doc/{package}/copyright").read_text(errors="replace").rstrip()
            self.assertIn(notice, self.text, package)
        for text in ["GCC RUNTIME LIBRARY EXCEPTION", "mingw-w64-libraries/winpthreads", "Nemanja Trifunovic",
                     "NSIS Contributors"]:
            self.assertIn(text, self.text)

    def generate(self, linked):
        """Runs the script on the build with one more file linked into the program."""
        with tempfile.TemporaryDirectory(dir=Root / "build") as folder:
            for name in ["build.ninja", "CMakeFiles", ".ninja_deps", ".ninja_log"]:
                (Path(folder) / name).symlink_to(Build / name)
            linkerMap = (Build / "tamblewick.exe.map").read_text(errors="replace")
            (Path(folder) / "tamblewick.exe.map").write_text(linkerMap + f"\nLOAD {linked}\n")
            return subprocess.run([Script, folder, "4.0.1", "tamblewick.exe", "--"], capture_output=True, text=True)

    def test_of_a_new_library_come_by_themselves(self):
        library = subprocess.run(["gcc", "-print-libgcc-file-name"], check=True, capture_output=True, text=True)
        package = package_of(library.stdout.strip())
        self.assertNotIn(package, self.named)
        generated = self.generate(library.stdout.strip())
        self.assertEqual(generated.returncode, 0, generated.stderr)
        self.assertRegex(generated.stdout, f"(?m)^{re.escape(package)} .*: libgcc[.]a$")

    def test_cannot_be_made_with_a_library_of_unknown_origin(self):
        with tempfile.NamedTemporaryFile(suffix=".a") as library:
            generated = self.generate(library.name)
            self.assertEqual(generated.returncode, 1)
            self.assertIn(library.name, generated.stderr)

    def test_are_in_a_file_for_windows(self):
        data = contents(Portable)["tamblewick-4.0.1/THIRD-PARTY.txt"]
        self.assertEqual(data.count(b"\n"), data.count(b"\r\n"))


if __name__ == "__main__":
    reported.main()
