#!/usr/bin/env python3
"""Checks that relative links, anchors and pictures of all Markdown files lead somewhere, and that every document in
docs/ can be reached from its index.

check_links.py ROOT
"""

import pathlib
import posixpath
import sys
import urllib.parse

from markdown import Document, documents

INDEX = "docs/README.md"


def links_of(root, name, document):
    """(line, file from the root, anchor, problem or None) of each relative link."""
    for line, target in document.links():
        parts = urllib.parse.urlsplit(target)
        if parts.scheme or target.startswith("//"):
            continue
        path = urllib.parse.unquote(parts.path)
        file = posixpath.normpath(posixpath.join(posixpath.dirname(name), path)) if path else name
        problem = None
        if path.startswith("/") or file.startswith(".."):
            problem = "leaves the project"
        elif not (pathlib.Path(root) / file).exists():
            problem = "no such file"
        yield line, file, urllib.parse.unquote(parts.fragment), problem


def problems(root):
    parsed = {}
    for name in documents(root):
        try:
            parsed[name] = Document((pathlib.Path(root) / name).read_text(encoding="utf-8"))
        except ValueError as error:
            yield f"{name}: {error}"
    reached = set()
    for name, document in parsed.items():
        for line, file, anchor, problem in links_of(root, name, document):
            if name == INDEX:
                reached.add(file)
            if problem is None and anchor and (file not in parsed or anchor not in parsed[file].anchors()):
                problem = "no such heading"
            if problem:
                yield f"{name}:{line}: {file}{'#' + anchor if anchor else ''}: {problem}"
    for name in parsed:
        if name.startswith("docs/") and name != INDEX and name not in reached:
            yield f"{INDEX}: does not link {name}"


def main():
    if len(sys.argv) != 2:
        raise SystemExit(__doc__)
    found = list(problems(sys.argv[1]))
    print("\n".join(found) if found else f"all links of {len(documents(sys.argv[1]))} documents lead somewhere")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
