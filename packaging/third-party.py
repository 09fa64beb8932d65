#!/usr/bin/env python3
"""third-party.py BUILD VERSION PROGRAM... -- FILE...: prints the notices of all that others have written in the
programs, which lie in the build folder BUILD, and in the FILEs, which are parts of the setup's own code.

What is linked is read from the linker's map of each program, what is compiled or embedded from ninja's record of the
build. Each file from outside the sources must belong to a Debian package, whose copyright file is printed in full. So
a new library brings its notice along, and one of unknown origin ends the script."""

import re
import subprocess
import sys
from pathlib import Path

Rule = "-" * 118


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def linked_files(build, program):
    """Libraries and objects that the linker has read, as in its map."""
    text = (build / f"{program}.map").read_text(errors="replace")
    return {build / name for name in re.findall(r"^LOAD (.*[.](?:a|o|obj|res))$", text, re.M)}


def compiled_files(build, program):
    """Sources, headers and embedded files of a program."""
    inputs = run("ninja", "-C", str(build), "-t", "inputs", program).splitlines()
    inputs = [line for line in inputs if not line.startswith("ninja: ")]
    objects = [name for name in inputs if name.endswith(".obj")]
    headers = re.findall(r"^    (.*)$", run("ninja", "-C", str(build), "-t", "deps", *objects), re.M)
    return {build / name for name in inputs + headers}


def owners(files):
    """The files of each package. Ends the script if one belongs to no package."""
    packages = {}
    known = {}
    for line in run("dpkg-query", "--search", *map(str, files)).splitlines():
        package, file = line.split(": ", 1)
        known[file] = package.split(",")[0].split(":")[0]
    for file in files:
        packages.setdefault(known[str(file)], set()).add(file)
    return packages


def outside(files, own):
    """Those of the files that do not lie below the folders, sorted, with links resolved."""
    resolved = {file.resolve() for file in files}
    return sorted(file for file in resolved if not any(file.is_relative_to(folder) for folder in own))


def what(files):
    """Libraries by name, headers as such."""
    names = {"headers" if "/include" in str(file.parent) else file.name for file in files if "doc" not in file.parts}
    return ", ".join(sorted(names))


def main(build, version, arguments):
    middle = arguments.index("--")
    programs, parts = arguments[:middle], [Path(name) for name in arguments[middle + 1:]]
    build = Path(build).resolve()
    files = set(parts)
    for program in programs:
        files |= linked_files(build, program) | compiled_files(build, program)
    packages = owners(outside(files, [build, Path(__file__).resolve().parent.parent]))

    heading = f"Notices for Tamblewick {version}"
    print(heading, "=" * len(heading), "", sep="\n")
    print("The programs and the setup contain code of the Debian packages below. The notice of each is the copyright file\n"
          "of its package in full, which also speaks of files that are not used here.\n")
    notices = {}
    for package in sorted(packages):
        packageVersion = run("dpkg-query", "-W", "-f", "${Version}", package)
        print(f"{package} {packageVersion}: {what(packages[package])}")
        notice = Path(f"/usr/share/doc/{package}/copyright").read_text(errors="replace")
        notices.setdefault(notice, []).append(package)
    for notice, names in notices.items():
        print("", Rule, ", ".join(names), Rule, "", notice.rstrip(), sep="\n")


try:
    main(sys.argv[1], sys.argv[2], sys.argv[3:])
except subprocess.CalledProcessError as error:
    sys.exit(f"third-party.py: {error.stderr.strip()}")
