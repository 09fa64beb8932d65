#!/usr/bin/env python3
"""Makes a tree of empty files whose names are as mixed as those of real folders: words, digits, cases, scripts.

    mixed-tree.py PATH FOLDERS FILES_IN_EACH

The same arguments make the same tree. The name of each file, and of nothing else, has a tilde.
"""
import pathlib
import random
import sys

WORDS = """invoice Report IMG summary draft Budget notes holiday scan contract backup Photo letter meeting
minutes plan README index license setup config data export final FINAL old copy version project client tax
Übersicht Größe été garçon señor niño façade naïve Ångström smørrebrød
отчёт Договор фото письмо план έκθεση φωτογραφία σχέδιο
報告 写真 会議 計画書 请求书 合同 보고서 사진 계약서 تقرير صورة חוזה""".split()
SEPARATORS = [" ", "-", "_", ".", ""]
EXTENSIONS = ["txt", "pdf", "DOCX", "xlsx", "jpg", "JPG", "png", "mp3", "html", "c", "h", "tar.gz", "log", "7z"]
CASES = [str, str, str.lower, str.upper, str.title]


def word(random_):
    if random_.random() < 0.3:
        return str(random_.randrange(10 ** random_.randint(1, 5))).zfill(random_.choice([1, 1, 2, 4]))
    return random_.choice(CASES)(random_.choice(WORDS))


def words(random_):
    return random_.choice(SEPARATORS).join(word(random_) for _ in range(random_.randint(1, 4)))


def unused(make, taken):
    """Names that differ in case alone are the same name on Windows."""
    while True:
        name = make()
        if name.casefold() not in taken:
            taken.add(name.casefold())
            return name


def main():
    root, folders, files = pathlib.Path(sys.argv[1]), int(sys.argv[2]), int(sys.argv[3])
    random_ = random.Random(1)
    taken = {root: set()}
    places = [root]
    root.mkdir(parents=True)
    for number in range(folders):
        parent = random_.choice(places[-200:])
        folder = parent / unused(lambda: words(random_), taken[parent])
        folder.mkdir()
        taken[folder] = set()
        # Keeps the tree from growing too deep.
        if len(folder.relative_to(root).parts) < 8:
            places.append(folder)
        for _ in range(files):
            name = unused(lambda: f"{words(random_)}~{word(random_)}.{random_.choice(EXTENSIONS)}", taken[folder])
            (folder / name).touch()


main()
