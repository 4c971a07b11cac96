"""What the checks of the documents know of Markdown: fenced blocks, headings with their anchors, links."""

import pathlib
import re
import subprocess

FENCE = re.compile(r"^\s*(`{3,}|~{3,})\s*([^`]*)$")
HEADING = re.compile(r"^(#{1,6})\s+(.*?)\s*#*$")
INLINE_LINK = re.compile(r"!?\[(?:[^\[\]]|\[[^\[\]]*\])*\]\(\s*<?([^()\s>]*(?:\([^()\s]*\))?)>?(?:\s+\"[^\"]*\")?\s*\)")
REFERENCE_LINK = re.compile(r"^\s{0,3}\[[^\]]+\]:\s+<?(\S+?)>?(?:\s|$)")
HTML_LINK = re.compile(r"<(?:a|img)\b[^>]*?\b(?:href|src)=[\"']([^\"']+)[\"']", re.I)
HTML_ANCHOR = re.compile(r"<\w+\b[^>]*?\b(?:id|name)=[\"']([^\"']+)[\"']", re.I)
CODE_SPAN = re.compile(r"(`+)(?!`).*?(?<!`)\1(?!`)")


def documents(root):
    """All Markdown files of the project, as paths from its root; outside of a checkout, all that are there."""
    listed = subprocess.run(["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard", "*.md"],
                            capture_output=True, check=False)
    if listed.returncode == 0:
        names = [name for name in listed.stdout.decode().split("\0") if name]
    else:
        names = [str(path.relative_to(root)) for path in pathlib.Path(root).rglob("*.md")
                 if path.relative_to(root).parts[0] != "build"]
    return sorted(name for name in set(names) if (pathlib.Path(root) / name).exists())


class Block:
    """A fenced block of code."""

    def __init__(self, line, language):
        self.line = line  # of its fence, counted from 1
        self.language = language
        self.lines = []


class Document:
    """A file: prose lines (number, text) without code, and the fenced blocks."""

    def __init__(self, text):
        self.prose = []
        self.blocks = []
        fence = None
        for number, line in enumerate(text.split("\n"), 1):
            match = FENCE.match(line)
            if fence is None and match:
                fence = match.group(1)
                self.blocks.append(Block(number, match.group(2).strip()))
            elif fence is None:
                self.prose.append((number, line))
            elif match and match.group(1).startswith(fence) and not match.group(2):
                fence = None
            else:
                self.blocks[-1].lines.append(line)
        if fence is not None:
            raise ValueError(f"the block that begins in line {self.blocks[-1].line} has no end")

    def links(self):
        """(line, target) of each link and picture."""
        for number, line in self.prose:
            text = CODE_SPAN.sub(lambda span: "`" * len(span.group()), line)
            for pattern in (INLINE_LINK, REFERENCE_LINK, HTML_LINK):
                for match in pattern.finditer(text):
                    yield number, match.group(1)

    def anchors(self):
        """The anchors of its headings, as a viewer makes them; a second equal one gets a number."""
        found = set()
        counts = {}
        for _, line in self.prose:
            found.update(HTML_ANCHOR.findall(line))
            match = HEADING.match(line)
            if not match:
                continue
            anchor = anchor_of(match.group(2))
            count = counts.get(anchor, 0)
            counts[anchor] = count + 1
            found.add(f"{anchor}-{count}" if count else anchor)
        return found


def anchor_of(title):
    title = re.sub(r"!?\[([^\]]*)\]\([^)]*\)", r"\1", title).replace("`", "")
    return "".join("-" if c == " " else c for c in title.lower() if c.isalnum() or c in " -_")
