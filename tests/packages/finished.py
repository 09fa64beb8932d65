"""The packages that packaging/package.sh has made, and the build that they come from."""

import hashlib
import sys
import zipfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support" / "python"))
from reported import Root  # noqa: E402

Build = Root / "build" / "windows"
Packages = Root / "build" / "packages"
Programs = ["tamblewick.dll", "tamblewick.exe", "tamblewickc.exe"]
Documents = ["README.txt", "THIRD-PARTY.txt"]
Setup = Packages / "tamblewick-4.0.1-setup.exe"
Portable = Packages / "tamblewick-4.0.1-portable.zip"
Symbols = Packages / "tamblewick-4.0.1-symbols.zip"


def contents(package):
    """The bytes of each file of a zip by its path in it."""
    with zipfile.ZipFile(package) as packed:
        return {name: packed.read(name) for name in packed.namelist()}


def sha256(data):
    return hashlib.sha256(data).hexdigest()
