#!/usr/bin/env python3
"""The manifests for winget and Scoop say what is true of the packages."""

import json
import re
import unittest
from pathlib import PurePosixPath

import yaml

from finished import Documents, Packages, Portable, Programs, Root, Setup, contents, sha256
import reported

Script = (Root / "packaging" / "setup.nsi").read_text()
Released = "2026-11-21"


def written(name):
    """The text that the setup writes into its entry among the installed programs."""
    return re.search(rf'"\$\{{UninstallKey\}}" "{name}" "(.*)"', Script).group(1)


def file_of(url):
    return Packages / PurePosixPath(url).name


class Winget(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = Packages / "winget"
        cls.texts = {file.name: file.read_text() for file in folder.iterdir()}
        cls.version, cls.installer, cls.locale = (
            yaml.safe_load(cls.texts[f"OstrelVane.Tamblewick{kind}.yaml"])
            for kind in ["", ".installer", ".locale.en-US"])

    def test_manifests_agree(self):
        self.assertEqual(len(self.texts), 3)
        for manifest, kind in [(self.version, "version"), (self.installer, "installer"),
                               (self.locale, "defaultLocale")]:
            self.assertEqual(manifest["PackageIdentifier"], "OstrelVane.Tamblewick")
            self.assertEqual(manifest["PackageVersion"], "4.0.1")
            self.assertEqual(manifest["ManifestType"], kind)
            self.assertEqual(manifest["ManifestVersion"], self.version["ManifestVersion"])
        self.assertEqual(self.version["DefaultLocale"], self.locale["PackageLocale"])

    def test_nothing_is_left_to_fill_in(self):
        for name, text in self.texts.items():
            self.assertNotRegex(text, r"[{}]|package\.sh", name)

    def test_the_installer_is_the_setup(self):
        [installer] = self.installer["Installers"]
        self.assertEqual(file_of(installer["InstallerUrl"]), Setup)
        self.assertEqual(installer["InstallerSha256"].lower(), sha256(Setup.read_bytes()))
        self.assertEqual(installer["Architecture"], "x64")
        self.assertIn("Target amd64-unicode", Script)

    def test_the_setup_is_for_the_user_and_silent_when_asked_to(self):
        self.assertEqual(self.installer["InstallerType"], "nullsoft")
        self.assertEqual(self.installer["Scope"], "user")
        self.assertIn("RequestExecutionLevel user", Script)
        self.assertEqual(self.installer["InstallerSwitches"],
                         {"Silent": "/S", "SilentWithProgress": "/S", "InstallLocation": "/D=<INSTALLPATH>"})
        self.assertEqual(self.installer["InstallModes"], ["interactive", "silent"])

    def test_the_entry_among_the_installed_programs(self):
        [entry] = self.installer["AppsAndFeaturesEntries"]
        self.assertEqual(entry["ProductCode"], re.search(r'UninstallKey ".*\\(.*)"', Script).group(1))
        self.assertEqual(entry["DisplayName"], written("DisplayName"))
        self.assertEqual(entry["Publisher"], written("Publisher"))
        self.assertEqual(entry["DisplayVersion"], "4.0.1")
        self.assertEqual(str(self.installer["ReleaseDate"]), Released)

    def test_the_installed_files(self):
        metadata = self.installer["InstallationMetadata"]
        folder = re.search(r'^InstallDir "\$LOCALAPPDATA(.*)"$', Script, re.M).group(1)
        self.assertEqual(metadata["DefaultInstallLocation"], "%LocalAppData%" + folder)
        files = {file["RelativeFilePath"]: file for file in metadata["Files"]}
        self.assertEqual(sorted(files), sorted([*Programs, "uninstall.exe"]))
        self.assertEqual(files["uninstall.exe"]["FileType"], "uninstall")
        packed = contents(Portable)
        for program in Programs:
            self.assertEqual(files[program]["FileSha256"].lower(), sha256(packed[f"tamblewick-4.0.1/{program}"]))


class Scoop(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.text = (Packages / "scoop" / "tamblewick.json").read_text()
        cls.manifest = json.loads(cls.text)

    def test_the_download_is_the_portable_zip(self):
        self.assertEqual(self.manifest["version"], "4.0.1")
        self.assertEqual(list(self.manifest["architecture"]), ["64bit"])
        download = self.manifest["architecture"]["64bit"]
        self.assertEqual(file_of(download["url"]), Portable)
        self.assertEqual(download["hash"], sha256(Portable.read_bytes()))

    def test_what_it_names_is_in_the_zip(self):
        folder = self.manifest["architecture"]["64bit"]["extract_dir"]
        names = [self.manifest["bin"], *(shortcut[0] for shortcut in self.manifest["shortcuts"])]
        self.assertEqual(names, ["tamblewickc.exe", "tamblewick.exe"])
        for name in names:
            self.assertIn(f"{folder}/{name}", contents(Portable))
        self.assertEqual(re.findall(r"\\(\w+[.]exe)", self.manifest["pre_uninstall"]), ["tamblewickc.exe"])

    def test_nothing_is_left_to_fill_in(self):
        self.assertNotRegex(self.text, r"\{\w+\}")


class Zip(unittest.TestCase):
    def test_has_the_programs_and_documents_in_one_folder(self):
        self.assertEqual(list(contents(Portable)),
                         sorted(f"tamblewick-4.0.1/{name}" for name in Programs + Documents))


if __name__ == "__main__":
    reported.main()
