#!/usr/bin/env python3
"""An address in a program that was shipped leads to the line of the sources, by the zip of the symbols alone."""

import re
import struct
import subprocess
import tempfile
import unittest
import zlib
from pathlib import Path

from finished import Portable, Programs, Root, Symbols, contents
import reported


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


class SymbolsOfPrograms(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        for package in [Portable, Symbols]:
            for name, data in contents(package).items():
                (self.folder / Path(name).name).write_bytes(data)

    def test_are_in_a_zip_of_their_own(self):
        names = [f"tamblewick-4.0.1-symbols/{program}.debug" for program in Programs]
        self.assertEqual(list(contents(Symbols)), names)
        self.assertFalse([name for name in contents(Portable) if "debug" in name])

    def test_are_not_in_the_programs(self):
        for program in Programs:
            sections = run("x86_64-w64-mingw32-objdump", "--section-headers", self.folder / program)
            self.assertEqual(re.findall(r"[.]debug_\w+|[.]zdebug\w+", sections), [], program)
            self.assertIn("no symbols", run("x86_64-w64-mingw32-objdump", "--syms", self.folder / program))

    def test_belong_to_the_programs(self):
        for program in Programs:
            # The section begins with the name; the sum follows at the next multiple of four.
            data = (self.folder / program).read_bytes()
            name = f"{program}.debug".encode() + b"\0"
            self.assertEqual(data.count(name), 1)
            place = (data.index(name) + len(name) + 3) // 4 * 4
            sum, = struct.unpack_from("<I", data, place)
            self.assertEqual(sum, zlib.crc32((self.folder / f"{program}.debug").read_bytes()), program)

    def test_lead_from_an_address_to_the_function_and_its_line(self):
        for program, function, source in [("tamblewick.exe", "AppMain()", "src/app/AppMain.cpp"),
                                          ("tamblewickc.exe", "wmain", "src/console/Main.cpp"),
                                          ("tamblewick.dll", "DllInstall", "contextmenu/Exports.cpp")]:
            symbols = run("x86_64-w64-mingw32-nm", "--demangle", self.folder / f"{program}.debug")
            address = re.search(rf"^(\S+) T {re.escape(function)}$", symbols, re.M).group(1)
            # Found through the link in the program.
            found = run("x86_64-w64-mingw32-addr2line", "--demangle", "--functions", "--exe", self.folder / program,
                        address).splitlines()
            self.assertEqual(found[0], function)
            self.assertRegex(found[1], rf"(^|/){source}:\d+$")
            line = (Root / source).read_text().splitlines()[int(found[1].rsplit(":", 1)[1]) - 1]
            self.assertIn(function.rstrip("()"), line)

    def test_do_not_name_the_folder_of_the_build(self):
        for file in self.folder.iterdir():
            self.assertNotIn(str(Root).encode(), file.read_bytes(), file.name)


if __name__ == "__main__":
    reported.main()
