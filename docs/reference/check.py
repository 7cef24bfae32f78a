# SPDX-License-Identifier: MIT
"""check.py XML HTML: fails where the reference lacks something that Doxygen does not warn about.

Doxygen says nothing of enumerators and destructors without a comment, of links to what is not there,
nor of pages that the index does not lead to.
"""
import html.parser
import pathlib
import sys
import urllib.parse
import xml.etree.ElementTree as ElementTree


def undocumented(folder):
    """The names of what a host can use and no comment describes."""

    def is_described(node):
        texts = (node.find(part) for part in ("briefdescription", "detaileddescription"))
        return any("".join(text.itertext()).strip() for text in texts if text is not None)

    for file in sorted(folder.glob("*.xml")):
        for compound in ElementTree.parse(file).getroot().iter("compounddef"):
            if compound.get("kind") not in ("class", "struct", "file"):
                continue
            owner = compound.findtext("compoundname")
            if compound.get("kind") != "file" and not is_described(compound):
                yield owner
            for member in compound.iter("memberdef"):
                name = f"{owner}::{member.findtext('name')}"
                if member.get("prot") == "private" or member.get("kind") == "friend":
                    continue
                if "delete" in (member.findtext("argsstring") or ""):
                    continue
                if not is_described(member):
                    yield name
                for value in member.iter("enumvalue"):
                    if not is_described(value):
                        yield f"{name}::{value.findtext('name')}"


class Page(html.parser.HTMLParser):
    """The places of a page, and what it leads to."""

    def __init__(self, file):
        super().__init__()
        self.places, self.targets = set(), []
        self.feed(file.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        for key, value in attributes:
            if key == "id" or (key == "name" and tag == "a"):
                self.places.add(value)
            elif key in ("href", "src") and value:
                self.targets.append(value)


def broken_links(folder):
    pages = {file.name: Page(file) for file in folder.glob("*.html")}
    for name, page in sorted(pages.items()):
        for target in page.targets:
            url = urllib.parse.urlsplit(target)
            if url.scheme or url.netloc:
                continue
            file = urllib.parse.unquote(url.path) or name
            if not (folder / file).exists():
                yield f"{name}: {target}"
            elif url.fragment and file in pages:
                if urllib.parse.unquote(url.fragment) not in pages[file].places:
                    yield f"{name}: {target}"


def unreachable_pages(folder):
    """The pages that the index does not lead to."""
    targets = Page(folder / "index.html").targets
    for file in sorted(folder.glob("md_*.html")):
        if file.name not in targets:
            yield file.name


def main():
    xml, html_folder = (pathlib.Path(folder) for folder in sys.argv[1:])
    problems = [f"not documented: {name}" for name in undocumented(xml)]
    problems += [f"leads nowhere: {link}" for link in broken_links(html_folder)]
    problems += [f"not in docs/README.md: {page}" for page in unreachable_pages(html_folder)]
    print("".join(f"docs: {problem}\n" for problem in problems), end="", file=sys.stderr)
    return 1 if problems else 0


sys.exit(main())
