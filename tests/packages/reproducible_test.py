#!/usr/bin/env python3
"""The packages made once more, elsewhere, later and by another user, are the same byte by byte."""

import os
import struct
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

from finished import Packages, Portable, Programs, Root, Symbols, contents
import reported


def files_in(folder):
    return {str(file.relative_to(folder)): file.read_bytes() for file in folder.rglob("*") if file.is_file()}


class MadeOnceMore(unittest.TestCase):
    def test_the_packages_are_the_same(self):
        with tempfile.TemporaryDirectory() as folder:
            elsewhere = Path(folder) / "a longer way" / "packages"
            elsewhere.parent.mkdir()
            subprocess.run([Root / "packaging" / "package.sh", elsewhere], check=True, umask=0o077,
                           stdout=subprocess.DEVNULL, env={**os.environ, "TZ": "Pacific/Auckland"})
            first, second = files_in(Packages), files_in(elsewhere)
            self.assertEqual(sorted(first), sorted(second))
            self.assertEqual([name for name in first if first[name] != second[name]], [])

    def test_packed_files_bear_the_time_of_the_release(self):
        for package in [Portable, Symbols]:
            with zipfile.ZipFile(package) as packed:
                self.assertEqual({file.date_time for file in packed.infolist()}, {(2026, 11, 21, 12, 0, 0)})

    def test_programs_bear_no_time(self):
        packed = contents(Portable)
        for program in Programs:
            data = packed[f"tamblewick-4.0.1/{program}"]
            header, = struct.unpack_from("<I", data, 0x3C)
            self.assertEqual(data[header:header + 4], b"PE\0\0")
            self.assertEqual(struct.unpack_from("<I", data, header + 8), (0,), program)


if __name__ == "__main__":
    reported.main()
