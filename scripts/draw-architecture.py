#!/usr/bin/env python3
"""Draws docs/pictures/architecture.svg: the folders of the sources, which folders each one includes, and the way of a
list through them.

    scripts/draw-architecture.py            draws the picture; needs graphviz
    scripts/draw-architecture.py --check    fails if the picture differs from what the sources are now

The folders are those of the table in docs/architecture.md. An arrow that others imply is left out. The steps of a list
are below, each with the call that makes it, which must be in the source."""

import re
import subprocess
import sys
from html import escape
from pathlib import Path
from textwrap import wrap

Root = Path(__file__).resolve().parent.parent
Document = Root / "docs" / "architecture.md"
Picture = Root / "docs" / "pictures" / "architecture.svg"

# The source file and a call in it, the folder that it leads to, and what the picture says.
Steps = [
    ("src/app/AppMain.cpp", "ListMakerWithUI job(", "listmaker", "1 a job"),
    ("src/console/list/ListCommand.cpp", "ScanOptions(", "listmaker", "1 options"),
    ("src/listmaker/ListMaker.cpp", "Scanner::Scan(", "scanner", "2 scans the folder"),
    ("src/console/list/ListCommand.cpp", "Scanner::Scan(", "scanner", "2"),
    ("src/listmaker/ListMaker.cpp", "WriteList(", "writers", "3 writes the list"),
    ("src/console/list/WriteFormat.cpp", "MakeWriter(", "writers", "3"),
    ("src/listmaker/OpenList.cpp", "WinLib::Launch", "winlib", "4 opens it"),
]


def folder_of(path):
    return path.split("/")[1] if path.startswith("src/") else path.split("/")[0]


def purposes():
    """The folders and what they are for, from the table of the document."""
    rows = re.findall(r"^\| `([a-z]+)/` \| (.*?) \|$", Document.read_text(), re.M)
    return dict(rows)


def folders():
    """All folders with sources of the programs."""
    return {folder_of(str(file.relative_to(Root))) for parent in ["src", "contextmenu"]
            for file in (Root / parent).rglob("*") if file.suffix in {".cpp", ".h", ".rc"}}


def includes():
    """The folders that each folder includes, without itself."""
    found = {folder: set() for folder in folders()}
    for parent in ["src", "contextmenu"]:
        for file in (Root / parent).rglob("*"):
            if file.suffix not in {".cpp", ".h"}:
                continue
            folder = folder_of(str(file.relative_to(Root)))
            for other in re.findall(r'^#include "([a-z]+)/', file.read_text(), re.M):
                if other != folder and other in found:
                    found[folder].add(other)
    return found


def reached(graph, start):
    """All folders that can be reached from one, over at least one arrow."""
    seen = set()
    waiting = list(graph[start])
    while waiting:
        folder = waiting.pop()
        if folder not in seen:
            seen.add(folder)
            waiting += graph[folder]
    return seen


def graph_text():
    known, graph = purposes(), includes()
    if set(known) != set(graph):
        sys.exit(f"The table of {Document.name} differs from the folders: {', '.join(set(known) ^ set(graph))}")
    for folder in graph:
        if folder in reached(graph, folder):
            sys.exit(f"{folder} includes itself over other folders.")
    lines = ["digraph {",
             '  graph [rankdir=TB, nodesep=0.35, ranksep=0.55, bgcolor=white, fontname="DejaVu Sans"]',
             '  node [shape=box, style="rounded,filled", fillcolor="#f4f6f8", color="#8a96a3", '
             'fontname="DejaVu Sans", fontsize=11]',
             '  edge [color="#a9b3bd", arrowsize=0.7, fontname="DejaVu Sans", fontsize=10]']
    for folder in known:
        purpose = escape(known[folder].replace("`", ""))
        lines.append(f"  {folder} [label=<<b>{folder}</b><br/>" + "<br/>".join(wrap(purpose, 30)) + ">]")
    ways = {}
    for source, call, target, caption in Steps:
        if call not in (Root / source).read_text():
            sys.exit(f"{source} does not call {call}")
        ways.setdefault((folder_of(source), target), []).append(caption)
    for folder in known:
        implied = set().union(*(reached(graph, other) for other in graph[folder])) if graph[folder] else set()
        for other in sorted(graph[folder]):
            if (folder, other) in ways:
                caption = "\\n".join(f"  {step}" for step in ways[folder, other])
                lines.append(f'  {folder} -> {other} [color="#1f6fb2", penwidth=2.2, fontcolor="#1f6fb2", '
                             f'label="{caption}"]')
            elif other not in implied:
                lines.append(f"  {folder} -> {other}")
    for folder, other in ways:
        if other not in graph[folder]:
            sys.exit(f"{folder} does not include {other}, though a step of a list leads there.")
    return "\n".join(lines + ["}", ""])


def main():
    text = graph_text()
    # The picture itself depends on the version of graphviz and its fonts; the graph in it does not.
    comment = f"<!-- The graph, by scripts/draw-architecture.py:\n{text}-->\n"
    if sys.argv[1:] == ["--check"]:
        if not Picture.exists() or comment not in Picture.read_text():
            sys.exit(f"{Picture.relative_to(Root)} is out of date: run scripts/draw-architecture.py")
        return
    drawn = subprocess.run(["dot", "-Tsvg"], input=text, check=True, capture_output=True, text=True).stdout
    drawn = re.sub(r"<!--.*?-->\n", "", drawn, flags=re.S)
    Picture.write_text(drawn.replace("<svg ", comment + "<svg ", 1))


main()
