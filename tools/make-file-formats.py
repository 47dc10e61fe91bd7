#!/usr/bin/env python3
"""Writes docs/file-formats.md from docs/file-formats.template.md and the golden files.

A line of the template such as

    {{golden example/panel/CAEInput.txt 1-6,31-38 blanks}}

is replaced by a block with these lines of tests/golden/example/panel/CAEInput.txt; without numbers,
by the whole file. Tabs and blanks at the end of a line are made visible, with "blanks" each blank.
The test FileFormatsPage fails when the page is not what this makes of the two.

Usage: tools/make-file-formats.py [PAGE]

PAGE is written in place of docs/file-formats.md.
"""

import pathlib
import re
import sys

PROJECT = pathlib.Path(__file__).resolve().parent.parent
PAGE = PROJECT / "docs" / "file-formats.md"
TEMPLATE = PROJECT / "docs" / "file-formats.template.md"
SLOT = re.compile(r"\{\{golden (\S+)(?: ([\d,-]+))?( blanks)?\}\}")
BLANK, TAB, LEFT_OUT = "·", "→", "⋮"


def visible(line, all_blanks):
    """The line with marks for what would not be seen."""
    if not all_blanks:
        text = line.rstrip(" ")
        line = text + BLANK * (len(line) - len(text))
    else:
        line = line.replace(" ", BLANK)
    return line.replace("\t", TAB)


def chosen(lines, ranges):
    """The lines of the ranges, with a mark wherever lines are left out."""
    taken, before = [], 0
    for first, last in (map(int, each.split("-")) for each in ranges.split(",")):
        if not before < first <= last <= len(lines):
            raise SystemExit(f"There are no lines {first}-{last} after line {before}.")
        taken += [LEFT_OUT] * (first > before + 1) + lines[first - 1 : last]
        before = last
    return taken + [LEFT_OUT] * (before < len(lines))


def block(slot):
    """The block that takes the place of a slot."""
    path, ranges, all_blanks = slot.groups()
    text = (PROJECT / "tests" / "golden" / path).read_bytes().decode("cp1252")
    lines = [visible(line, bool(all_blanks)) for line in text.split("\r\n")[:-1]]
    return "\n".join(["```text", *(chosen(lines, ranges) if ranges else lines), "```"])


def main():
    made = []
    for line in TEMPLATE.read_text(encoding="utf-8").splitlines():
        slot = SLOT.fullmatch(line)
        if slot is None and "{{" in line:
            raise SystemExit(f"This is no slot: {line}")
        made.append(block(slot) if slot else line)
    page = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else PAGE
    page.write_text("\n".join(made) + "\n", encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
