"""Puts what was measured between two marks of docs/performance.md.

    page.py MARK < TABLE

MARK is the word in "<!-- MARK: begin -->".
"""

import pathlib
import sys

PAGE = pathlib.Path(__file__).resolve().parent.parent / "docs" / "performance.md"


def put(mark, text):
    begin, end = f"<!-- {mark}: begin -->", f"<!-- {mark}: end -->"
    before, rest = PAGE.read_text(encoding="utf-8").split(begin)
    after = rest.split(end)[1]
    PAGE.write_text(f"{before}{begin}\n{text}\n{end}{after}", encoding="utf-8")


if __name__ == "__main__":
    put(sys.argv[1], sys.stdin.read().rstrip("\n"))
