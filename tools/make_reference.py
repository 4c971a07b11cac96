#!/usr/bin/env python3
"""Makes docs/reference/*.md from the docstrings of the public headers.

make_reference.py          writes the documents
make_reference.py --check  fails, with the differences, when they are not what the headers make

A docstring is what stands in /// lines right before a method. What stands in // lines after a "// ---- Title ---" line
belongs to the whole group.
"""

import difflib
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# Header, document, title
DOCUMENTS = [
    ("include/kolmfluxor/property_set.h", "docs/reference/property-set.md", "IKolmFluxorPropertySet"),
    ("include/kolmfluxor/still_image.h", "docs/reference/still-image.md", "IKolmStillImage"),
]

METHOD = re.compile(r"virtual HRESULT STDMETHODCALLTYPE (\w+)\((.*)\) = 0;$", re.S)


class Group:
    def __init__(self, title):
        self.title = title
        self.rules = []
        self.methods = []


class Method:
    def __init__(self, name, arguments, docstring):
        self.name = name
        self.arguments = arguments
        first = re.match(r"Slot (\d+)\.\s*", docstring[0]) if docstring else None
        if not first:
            raise SystemExit(f"make_reference: {name} has no docstring that begins with its slot")
        self.slot = int(first.group(1))
        self.docstring = [docstring[0][first.end():]] + docstring[1:]


def plain_arguments(text):
    """The arguments on one line, pointers as they are written elsewhere: "ULONG* value"."""
    text = re.sub(r"\s+", " ", text).strip()
    return re.sub(r" ((?:\* ?)+)(?=\w)", lambda stars: stars.group(1).replace(" ", "") + " ", text)


def markdown(lines):
    """A docstring as Markdown: @param, @return and @throws become list items, headers in angle brackets code."""
    text = []
    in_list = in_code = False
    for line in lines:
        if line.startswith("```"):
            in_code = not in_code
        if in_code:
            text.append(line)
            continue
        line = re.sub(r"<([\w/]+\.h)>", r"`<\1>`", line.rstrip())
        tag = re.match(r"@(param|return|throws)\s+(.*)", line)
        if tag:
            if not in_list and text and text[-1]:
                text.append("")
            in_list = True
            if tag.group(1) == "param":
                name, rest = tag.group(2).split(None, 1)
                line = "- " + ", ".join(f"`{part}`" for part in name.split(",")) + f": {rest.strip()}"
            else:
                line = f"- {'returns' if tag.group(1) == 'return' else 'throws'} {tag.group(2).strip()}"
        elif in_list and line:
            line = "  " + line.strip()
        text.append(line)
    return "\n".join(text).strip()


def parse(source):
    """The header's own comment, and its groups."""
    lines = source.split("\n")
    introduction = []
    groups = []
    docstring = []
    position = 0
    while position < len(lines):
        line = lines[position].strip()
        position += 1
        if line.startswith("/// @file"):
            introduction.append(line[len("/// @file"):].strip())
            while lines[position].startswith("///"):
                introduction.append(lines[position][4:])
                position += 1
        elif re.fullmatch(r"// -{4,}", line):
            continue  # the end of a title line that was too long
        elif line.startswith("// ----"):
            groups.append(Group(line.strip("/- ")))
        elif line.startswith("///"):
            docstring.append(line[4:])
        elif line.startswith("// ") and groups and not groups[-1].methods:
            groups[-1].rules.append(line[3:])
        elif line.startswith("virtual HRESULT"):
            while not line.endswith(";"):
                line += " " + lines[position].strip()
                position += 1
            match = METHOD.match(line)
            if not match or not groups:
                raise SystemExit(f"make_reference: cannot read {line}")
            groups[-1].methods.append(Method(match.group(1), plain_arguments(match.group(2)), docstring))
            docstring = []
        elif line:
            docstring = []
    return introduction, groups


def rules_list(rules):
    """Rules of a group: a line that begins with a word and a colon is an item, the other ones follow on."""
    text = []
    for rule in rules:
        item = re.match(r"(\w+):\s+(.*)", rule)
        if item:
            text.append(f"- {item.group(1)}: {item.group(2)}")
        elif text and text[-1].startswith(("- ", "  ")):
            text.append("  " + rule.strip())
        else:
            text.append(rule.strip())
    return "\n".join(text)


def document(header, title):
    introduction, groups = parse((ROOT / header).read_text(encoding="utf-8"))
    slots = [method.slot for group in groups for method in group.methods]
    if slots != list(range(3, 3 + len(slots))):
        raise SystemExit(f"make_reference: {header}: slots are not 3, 4, 5 ... in order")
    out = [f"# {title}", "",
           f"Made by `tools/make_reference.py` from the comments in",
           f"[`{header}`](../../{header}); change those.", "",
           markdown(introduction), "",
           "How to get the interface, and how to use it: [programmer's guide](../programmers-guide.md).", ""]
    for group in groups:
        links = ", ".join(f"[{method.name}](#{method.name.lower()})" for method in group.methods)
        out.append(f"- **{group.title}**: {links}")
    for group in groups:
        out += ["", f"## {group.title}", ""]
        if group.rules:
            out += [rules_list(group.rules), ""]
        for method in group.methods:
            out += [f"### {method.name}", "", "```cpp", f"HRESULT {method.name}({method.arguments});", "```", ""]
            out += [f"Slot {method.slot}. {markdown(method.docstring)}".strip(), ""]
    return re.sub(r"\n{3,}", "\n\n", "\n".join(out)).rstrip() + "\n"


def main():
    check = sys.argv[1:] == ["--check"]
    if sys.argv[1:] and not check:
        raise SystemExit(__doc__)
    stale = False
    for header, path, title in DOCUMENTS:
        text = document(header, title)
        file = ROOT / path
        if not check:
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8", newline="\n")
            continue
        committed = file.read_text(encoding="utf-8") if file.exists() else ""
        if committed != text:
            stale = True
            sys.stdout.writelines(difflib.unified_diff(committed.splitlines(True), text.splitlines(True), path,
                                                       f"made from {header}"))
    if stale:
        raise SystemExit("make_reference: run tools/make_reference.py and commit what it wrote")


if __name__ == "__main__":
    main()
