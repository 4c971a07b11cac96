#!/usr/bin/env python3
"""Runs the commands that stand in a document, and compares what they print with what stands below them.

run_commands.py ROOT BUILD DOCUMENT...    (documents from ROOT, as in docs/user-guide.md)

A block marked "console" holds commands after "$ ", each followed by what it prints: … stands for anything within a
line, a line … for any lines. Nothing below a command: only its success counts. A command that fails must be followed by
"$ echo $?". "console example" says that the output is one of many and is not compared. A block marked "sh" is a script;
its success counts.

The blocks of a document run in their order, in one shell, in a folder of its own in which cmake/, include/, examples/ and
build/windows-release/bin/ are those of the project, on a Wine prefix of its own in which module and simulated camera are
registered. kolmctl, regsvr32 and minimal_client run those of BUILD.
"""

import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

from markdown import Document

LIMIT_S = 540  # of a document
RUN_LIMIT_S = 90  # of one Windows program

# Blocks that are not run, by document and first line, with the reason.
NOT_RUN = {
    ("README.md", "./demo    # sets up, builds, and shows the module at work on the simulated camera"):
        "continuous integration runs ./test; ./demo and the build are what this test itself stands on",
    ("README.md", "KOLMSIM_PACED=1 KOLM_WINE_DISPLAY=x11 cmake/wine/run.sh build/windows-release/bin/kolmview.exe "
                  "--simulate"): "it opens a window on somebody's display, and stays until it is closed",
    ("docs/testing.md", "cmake --build --preset windows-release --target unit_tests"):
        "it builds, and runs a test out of many: ctest does both",
    ("docs/kolmctl.md", "kolmctl --simulate --json features | jq -r '.[] | select(.mode == \"auto\").feature'"):
        "jq is no tool that building or testing needs",
}

OTHER_LANGUAGES = {"", "cpp", "csv", "json", "text", "ini", "cmake", "python", "csharp"}

REGISTER = "regsvr32 kolmfluxor.dll && regsvr32 'simulator\\kolmsimcam.ax'"

MARK = "\x1e"  # stands in no output


class Command:
    def __init__(self, line, text, expected, script=False):
        self.line = line
        self.text = text
        self.expected = expected  # lines, or None where any will do
        self.script = script


def commands_of(name, document, unused):
    """The commands of a document in order. @throws ValueError for a block that says not how it is run"""
    for block in document.blocks:
        kind, _, manner = block.language.partition(" ")
        first = next((line for line in block.lines if line.strip()), "")
        if kind in OTHER_LANGUAGES:
            if any(line.startswith("$ ") for line in block.lines):
                raise ValueError(f"{name}:{block.line}: a block with commands is marked \"console\"")
        elif kind not in ("console", "sh") or manner not in ("", "example"):
            raise ValueError(f"{name}:{block.line}: a block of an unknown kind: {block.language}")
        elif (name, first) in NOT_RUN:
            unused.discard((name, first))
        elif kind == "sh":
            yield Command(block.line, "\n".join(block.lines), None, script=True)
        else:
            yield from console_commands(name, block, compared=manner != "example")


def console_commands(name, block, compared):
    position = 0
    while position < len(block.lines):
        line = block.line + 1 + position
        if not block.lines[position].startswith("$ "):
            raise ValueError(f"{name}:{line}: a console block begins with a command")
        text = block.lines[position][2:]
        position += 1
        while text.endswith("\\"):
            text += "\n" + block.lines[position]
            position += 1
        expected = []
        while position < len(block.lines) and not block.lines[position].startswith("$ "):
            expected.append(block.lines[position])
            position += 1
        while expected and not expected[-1].strip():
            expected.pop()
        yield Command(line, text, expected if expected and compared else None)


def matches(expected, printed):
    """Whether lines are what the document shows."""
    pattern = ""
    for line in expected:
        if line.strip() == "…":
            pattern += r"(?:.*\n)*"
        else:
            pattern += ".*".join(re.escape(part) for part in line.rstrip().split("…")) + r"\n"
    text = "".join(line.rstrip() + "\n" for line in printed.rstrip().split("\n"))
    return re.fullmatch(pattern, text) is not None


def shell_script(commands):
    """Runs the commands one by one, and marks begin, end and status of each."""
    script = ["__status=0"]
    for number, command in enumerate(commands):
        script.append(f"printf '{MARK}begin {number}{MARK}'")
        if command.script:
            script += ["set -e", command.text, "__status=0", "set +e"]
        else:
            script += [f"(exit $__status)\neval {shlex.quote(command.text)}", "__status=$?"]
        script.append(f"printf '{MARK}end {number} %d{MARK}' $__status")
    return "\n".join(script) + "\n"


def results_of(output, count):
    """(printed, status) of each command; status None for one that ended the shell."""
    for number in range(count):
        _, begun, rest = output.partition(f"{MARK}begin {number}{MARK}")
        printed, ended, rest = rest.partition(f"{MARK}end {number} ")
        if not ended:
            yield (printed if begun else ""), None
            return
        status, _, output = rest.partition(MARK)
        yield printed, int(status)


def problems(name, commands, output):
    results = list(results_of(output, len(commands)))
    for number, (command, (printed, status)) in enumerate(zip(commands, results)):
        following = commands[number + 1].text if number + 1 < len(commands) else ""
        place = f"{name}:{command.line}: {command.text}\n"
        if status is None or (status != 0 and following != "echo $?"):
            yield f"{place}-- failed ({'no status' if status is None else f'status {status}'}):\n{printed}"
        elif command.expected is not None and not matches(command.expected, printed):
            yield f"{place}-- the document says:\n" + "\n".join(command.expected) + f"\n-- it prints:\n{printed}"
    if len(results) < len(commands) and results and results[-1][1] is not None:
        yield f"{name}: only {len(results)} of {len(commands)} commands were run"


class Workshop:
    """The folder in which a document's commands run."""

    def __init__(self, root, build):
        self.root = root
        self.build = build
        self.base = build / "doc-commands"
        self.base.mkdir(exist_ok=True)
        self.folder = tempfile.TemporaryDirectory(dir=self.base)
        self.path = pathlib.Path(self.folder.name)
        self.work = self.path / "work"
        self.prefix = self.work / "build/demo-prefix"  # where ./demo has its own

    def __enter__(self):
        (self.work / "build/windows-release").mkdir(parents=True)
        (self.work / "build/windows-release/bin").symlink_to(self.build / "bin")
        for folder in ("cmake", "include", "examples"):
            (self.work / folder).symlink_to(self.root / folder)
        programs = self.path / "programs"
        programs.mkdir()
        run = shlex.quote(str(self.root / "cmake/wine/run.sh"))
        bin_folder = shlex.quote(str(self.build / "bin"))
        for program in ("kolmctl", "minimal_client"):
            self.write(programs / program, f'exec {run} {bin_folder}/{program}.exe "$@"')
        # As one types it in the folder of the files, silently: there is nobody to click the message away.
        self.write(programs / "regsvr32", f'cd {bin_folder} && exec {run} regsvr32 /s "$@"')
        return self

    @staticmethod
    def write(path, text):
        path.write_text(f"#!/bin/bash\n{text}\n", encoding="utf-8")
        path.chmod(0o755)

    def run(self, script):
        """What the script prints, both streams in one. @throws subprocess.TimeoutExpired"""
        environment = {
            "PATH": f"{self.path}/programs:/usr/local/bin:/usr/bin:/bin",
            "HOME": str(self.path),
            "KOLM_WINE_PREFIX": str(self.prefix),
            "KOLM_WINE_STATE": str(self.build / "wine"),
            "KOLM_WINE_TIMEOUT": str(RUN_LIMIT_S),
        }
        file = self.path / "script"
        file.write_text(script, encoding="utf-8")
        output = self.path / "output"
        # To a file: processes in the background would keep a pipe open.
        with open(output, "wb") as stream:
            try:
                subprocess.run(["timeout", "--kill-after=5", str(LIMIT_S), "bash", str(file)], cwd=self.work,
                               env=environment, stdin=subprocess.DEVNULL, stdout=stream, stderr=subprocess.STDOUT,
                               check=False)
            finally:
                stream.flush()
        return output.read_text(encoding="utf-8", errors="replace")

    def __exit__(self, *_):
        # The prefix's server outlives its programs for some seconds; it is told to end by its prefix.
        subprocess.run(["bash", "-c", '. "$1/cmake/wine/prefix.sh"; find_wine; stop_server "$2"; '
                        'remove_socket_folder "$2"', "bash", str(self.root), str(self.prefix)], check=False)
        self.folder.cleanup()


def check(root, build, name, unused):
    document = Document((root / name).read_text(encoding="utf-8"))
    commands = list(commands_of(name, document, unused))
    if not commands:
        print(f"{name}: no commands")
        return 0
    with Workshop(root, build) as workshop:
        output = workshop.run(shell_script([Command(0, REGISTER, None)] + commands))
    found = list(problems(name, [Command(0, REGISTER, None)] + commands, output))
    print("\n\n".join(found) if found else f"{name}: {len(commands)} commands do what it says")
    return len(found)


def main():
    if len(sys.argv) < 4:
        raise SystemExit(__doc__)
    root, build = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    names = sys.argv[3:]
    unused = {key for key in NOT_RUN if key[0] in names}
    failures = 0
    for name in names:
        try:
            failures += check(root, build, name, unused)
        except ValueError as error:
            print(error)
            failures += 1
    for name, first in sorted(unused):
        print(f"{name}: no block begins with \"{first}\", which stands in the list of those that are not run")
        failures += 1
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
