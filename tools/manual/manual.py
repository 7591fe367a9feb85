#!/usr/bin/env python3
"""Makes the user's manual: one HTML file out of a Markdown text and its pictures.

    tools/manual/manual.py TEXT.md PICTURES OUT.html

The pictures are taken by their file names from the folder PICTURES and put into the file, so that it can be handed on
alone. Fails, and writes nothing, where a picture is missing, a link leads nowhere, or an anchor stands twice.
"""

import base64
import html
import re
import sys
from pathlib import Path

import markdown

PNG = b"\x89PNG\r\n\x1a\n"

# For browsers and for the program's own window, which passes over what it does not know. No colours: the reader's own
# are read on light and on dark.
STYLE = """
:root { color-scheme: light dark; }
body { font-family: "DejaVu Sans", "Segoe UI", sans-serif; line-height: 140%; max-width: 900px; margin: 16px; }
h1 { font-size: xx-large; }
h2 { font-size: x-large; margin-top: 36px; }
h3 { font-size: large; margin-top: 24px; }
p.figura { line-height: 100%; }
table { border-collapse: collapse; margin-top: 8px; margin-bottom: 8px; }
th, td { border: 1px solid gray; padding: 4px; text-align: left; vertical-align: top; }
code, pre { font-family: "DejaVu Sans Mono", monospace; }
img { max-width: 100%; height: auto; }
@media print {
  h2, h3 { break-after: avoid; }
  tr { break-inside: avoid; }
}
"""
PAGE = """<!DOCTYPE html>
<html lang="pt-BR">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>{title}</title>
<style>{style}</style>
</head>
<body>
{body}
</body>
</html>
"""


class Fault(Exception):
    """What is wrong with the text, for whoever wrote it."""


def to_html(text):
    converter = markdown.Markdown(
        extensions=["tables", "toc", "attr_list", "sane_lists"],
        extension_configs={"toc": {"toc_depth": "2-3"}},
        output_format="html",
    )
    return converter.convert(text)


def anchors(body):
    """The anchors of the page; one that stands twice would lead to the first alone."""
    found = re.findall(r'\bid="([^"]*)"', body)
    twice = sorted({anchor for anchor in found if found.count(anchor) > 1})
    if twice:
        raise Fault(f"anchors that stand twice: {', '.join(twice)}")
    return set(found)


def check_links(body):
    known = anchors(body)
    for target in re.findall(r'\bhref="([^"]*)"', body):
        if not target.startswith("#"):
            raise Fault(f"a link out of the manual: {target}")
        if html.unescape(target[1:]) not in known:
            raise Fault(f"a link that leads nowhere: {target}")


def size_of(picture, name):
    if not picture.startswith(PNG):
        raise Fault(f"not a PNG picture: {name}")
    return int.from_bytes(picture[16:20], "big"), int.from_bytes(picture[20:24], "big")


def with_picture(match, folder):
    name = Path(html.unescape(match.group(1))).name
    file = folder / name
    if not file.is_file():
        raise Fault(f"a picture is missing: {name}")
    picture = file.read_bytes()
    width, height = size_of(picture, name)
    data = base64.b64encode(picture).decode("ascii")
    return f'src="data:image/png;base64,{data}" width="{width}" height="{height}"'


def with_pictures(body, folder):
    return re.sub(r'\bsrc="([^"]*)"', lambda match: with_picture(match, folder), body)


def mark_pictures(body):
    """A picture is as high as it is: the space between the lines of a text is not for it."""
    return body.replace("<p><img ", '<p class="figura"><img ')


def title_of(body):
    found = re.search(r"<h1[^>]*>(.*?)</h1>", body)
    if not found:
        raise Fault("the text has no title")
    return re.sub(r"<[^>]*>", "", found.group(1))


def page(text, folder):
    body = to_html(text)
    check_links(body)
    body = with_pictures(mark_pictures(body), folder)
    return PAGE.format(title=title_of(body), style=STYLE, body=body)


def main(arguments):
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    text, folder, out = (Path(argument) for argument in arguments)
    try:
        made = page(text.read_text(encoding="utf-8"), folder)
    except (Fault, OSError, UnicodeDecodeError) as fault:
        print(f"{text.name}: {fault}", file=sys.stderr)
        return 1
    out.write_text(made, encoding="utf-8", newline="\n")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
