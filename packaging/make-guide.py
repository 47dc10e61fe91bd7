#!/usr/bin/env python3
"""Makes the guide of the package: docs/guide.md and the pages that it leads to, as one HTML page
with its pictures inside.

    packaging/make-guide.py OUTPUT

A link or picture that leads nowhere is an error.
"""

import base64
import html
import pathlib
import re
import subprocess
import sys

top = pathlib.Path(__file__).resolve().parent.parent
docs = top / "docs"
# In this order; headings of all but the first are one level lower and have the page's name in
# their marks, for some stand in several pages.
pages = ["guide.md", "install.md", "first-study.md", "loop.md", "optimisers.md", "study-scripts.md",
         "file-formats.md", "messages.md", "findings.md", "behaviour.md"]


def slug(text):
    """The mark that a heading has on the usual web sites for Markdown."""
    kept = "".join(c for c in text.lower() if c.isalnum() or c in " -_")
    return kept.replace(" ", "-")


def mark(page, heading=""):
    name = pathlib.Path(page).stem
    if page == pages[0]:
        return heading or name
    return f"page-{name}" + (f"--{heading}" if heading else "")


def plain(fragment):
    return html.unescape(re.sub(r"<[^>]*>", "", fragment))


def with_marks(body, page, contents):
    """Gives every heading a mark, and adds those of the first two levels to the contents."""

    def heading(found):
        level, inside = int(found[1]), found[2]
        text = plain(inside)
        here = mark(page) if level == 1 else mark(page, slug(text))
        if level == 1 or (level == 2 and page == pages[0]):
            contents.append((level if page == pages[0] else 2, here, text))
        shown = level if page == pages[0] else level + 1
        return f'<h{shown} id="{html.escape(here)}">{inside}</h{shown}>'

    return re.sub(r"<h([1-5])>(.*?)</h\1>", heading, body, flags=re.S)


def with_pictures_inside(body):
    def picture(found):
        data = base64.b64encode((docs / html.unescape(found[1])).read_bytes()).decode()
        return f'src="data:image/png;base64,{data}"'

    return re.sub(r'src="([^":]*\.png)"', picture, body)


def with_links_inside(body, page):
    def link(found):
        target = html.unescape(found[1])
        if re.match(r"[a-z]+:", target):
            return found[0]
        file, _, heading = target.partition("#")
        file = file or page
        if file not in pages:
            raise SystemExit(f"docs/{page} leads to {target}, which the package does not have")
        return f'href="#{html.escape(mark(file, heading))}"'

    return re.sub(r'href="([^"]*)"', link, body)


def check(text):
    marks = re.findall(r' id="([^"]*)"', text)
    for mark_there in marks:
        if marks.count(mark_there) > 1:
            raise SystemExit(f"there are two headings #{mark_there}")
    for target in re.findall(r'href="#([^"]*)"', text):
        if target not in marks:
            raise SystemExit(f"there is no heading #{target}")
    for source in re.findall(r'src="([^"]{0,5})', text):
        if source != "data:":
            raise SystemExit("a picture is not inside the page")


def version():
    return re.search(r"^project\(.* VERSION (\S+)", (top / "CMakeLists.txt").read_text(), re.M)[1]


def main():
    if len(sys.argv) != 2:
        raise SystemExit(__doc__)
    contents = []
    sections = []
    for page in pages:
        made = subprocess.run(
            ["cmark-gfm", "-e", "table", docs / page], check=True, capture_output=True)
        body = with_marks(made.stdout.decode(), page, contents)
        body = with_links_inside(with_pictures_inside(body), page)
        sections.append(f"<section>\n{body}</section>\n")
    entries = "".join(f'<li><a href="#{html.escape(where)}">{html.escape(text)}</a></li>\n'
                      for level, where, text in contents if level > 1)
    style = (top / "packaging" / "guide.css").read_text()
    text = f"""<!DOCTYPE html>
<html lang="en-GB">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Velmar-Femap Interface {version()}: user guide</title>
<style>
{style}</style>
</head>
<body>
<nav>
<p>Velmar-Femap Interface {version()}</p>
<ul>
{entries}</ul>
</nav>
<main>
{"".join(sections)}</main>
</body>
</html>
"""
    check(text)
    pathlib.Path(sys.argv[1]).write_text(text, encoding="utf-8", newline="\n")


main()
