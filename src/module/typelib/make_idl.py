#!/usr/bin/env python3
"""Writes the IDL of the type library from the public headers: make_idl.py <include folder> <structures.idl> <output>

The headers stay the one place where the methods stand; each becomes a method of the library with the same name, slot
and arguments, and the first sentence of its comment as help text. Whatever does not read as expected ends the script.
"""

import pathlib
import re
import sys

# C++ type of an argument: its type in the library and its direction. Numbers and structures behind a plain pointer are
# outputs, texts and constants inputs. Pointers without a type are the caller's memory, thus inputs themselves.
ARGUMENT_TYPES = {
    "ULONG": ("unsigned long", "in"),
    "BOOL": ("long", "in"),
    "HWND": ("void*", "in"),
    "ULONG*": ("unsigned long*", "out"),
    "LONG*": ("long*", "out"),
    "BOOL*": ("long*", "out"),
    "char**": ("LPSTR*", "out"),
    "BSTR*": ("BSTR*", "out"),
    "IUnknown**": ("IUnknown**", "out"),
    "BITMAPINFOHEADER*": ("BITMAPINFOHEADER*", "out"),
    "BITMAPINFO*": ("BITMAPINFO*", "out"),
    "BYTE*": ("unsigned char*", "in"),
    "void*": ("void*", "in"),
    "const void*": ("void*", "in"),
    "const ULONG*": ("unsigned long*", "in"),
    "const char*": ("LPSTR", "in"),
    "const wchar_t*": ("LPWSTR", "in"),
    "IUnknown*": ("IUnknown*", "in"),
    "AM_MEDIA_TYPE*": ("AM_MEDIA_TYPE*", "in"),
    "VIDEO_STREAM_CONFIG_CAPS*": ("VIDEO_STREAM_CONFIG_CAPS*", "in"),
}

# Arguments that the types alone say wrongly.
DIRECTIONS = {
    ("SetRegisterComposite73", "a"): "in",  # an array of the caller's
    ("GetColorCorrectionOnOff", "on"): "in, out",  # left as the caller set it in modes other than Off and Manual
    ("GetTrigger", "mode"): "in, out",  # left alone when the camera reports none
}

INTERFACE = re.compile(r'MIDL_INTERFACE\("([0-9A-F-]+)"\)\s*(\w+) : public IUnknown \{(.*?)\nprotected:', re.DOTALL)
METHOD = re.compile(r"((?:[ \t]*///[^\n]*\n)+)\s*virtual HRESULT STDMETHODCALLTYPE (\w+)\(([^)]*)\) = 0;")
GUID_TEXT = re.compile(r"/// \{([0-9A-F-]+)\}  [^\n]*\n(?:///[^\n]*\n)*inline constexpr \w+ (\w+) =")
ENUM = re.compile(r"enum class (\w+) : std::uint32_t \{(.*?)\n\};", re.DOTALL)
ENUMERATOR = re.compile(r"^\s*(\w+) = (\d+),", re.MULTILINE)


def fail(text):
    sys.exit(f"make_idl.py: {text}")


def quoted(text):
    return '"' + text.replace("`", "").replace("\\", "\\\\").replace('"', '\\"') + '"'


def help_text(comment, slot):
    """The first sentence of a method's comment, behind its slot's number."""
    text = " ".join(line.strip().removeprefix("///").strip() for line in comment.splitlines())
    found = re.match(rf"Slot {slot}\.\s*(.*)", text)
    if not found:
        fail(f"expected the comment of slot {slot}, found: {text}")
    sentence = re.match(r"(.+?\.)(?= |$)", found.group(1))
    return f"Slot {slot}: {sentence.group(1)}" if sentence else f"Slot {slot}"


def arguments_of(method, text):
    """Rows (direction, type, name) of an argument list."""
    rows = []
    for argument in filter(None, (part.strip() for part in text.replace("\n", " ").split(","))):
        found = re.fullmatch(r"(.*?[\s*])(\w+)", argument)
        if not found:
            fail(f"{method}: cannot read \"{argument}\"")
        kind = re.sub(r"\s*\*", "*", " ".join(found.group(1).split()))
        if kind not in ARGUMENT_TYPES:
            fail(f"{method}: no rule for the type \"{kind}\"")
        idl_type, direction = ARGUMENT_TYPES[kind]
        rows.append([DIRECTIONS.get((method, found.group(2)), direction), idl_type, found.group(2)])
    outputs = [row for row in rows if "out" in row[0]]
    if len(outputs) == 1 and rows[-1][0] == "out":
        rows[-1][0] = "out, retval"
    return rows


def interface_lines(header, help_of_interface):
    found = INTERFACE.search(header)
    if not found:
        fail("no interface in a header")
    guid, name, body = found.groups()
    methods = METHOD.findall(body)
    if len(methods) != body.count("virtual"):
        fail(f"{name}: {body.count('virtual')} methods, of which {len(methods)} can be read")
    yield f"    [\n        object,\n        uuid({guid}),\n        helpstring({quoted(help_of_interface)})\n    ]"
    yield f"    interface {name} : IUnknown"
    yield "    {"
    for slot, (comment, method, arguments) in enumerate(methods, start=3):
        parts = [f"[{direction}] {kind} {argument}" for direction, kind, argument in arguments_of(method, arguments)]
        yield f"        [helpstring({quoted(help_text(comment, slot))})]"
        yield f"        HRESULT {method}({', '.join(parts)});"
    yield "    };"


def enum_lines(features, cpp_name, name, prefix):
    found = [match for match in ENUM.findall(features) if match[0] == cpp_name]
    if len(found) != 1:
        fail(f"no enumeration {cpp_name}")
    rows = ENUMERATOR.findall(found[0][1])
    if len(rows) != found[0][1].count("="):
        fail(f"{cpp_name}: not every enumerator can be read")
    yield f"    typedef enum {name}"
    yield "    {"
    yield ",\n".join(f"        {prefix}{key} = {value}" for key, value in rows)
    yield f"    }} {name};"


def class_lines(name, guid, interface, help_of_class, creatable):
    rest = "" if creatable else ",\n        noncreatable"
    yield f"    [\n        uuid({guid}),\n        helpstring({quoted(help_of_class)}){rest}\n    ]"
    yield f"    coclass {name}"
    yield "    {"
    yield f"        [default] interface {interface};"
    yield "    };"


def main():
    include, structures, output = map(pathlib.Path, sys.argv[1:4])
    identifiers = (include / "identifiers.h").read_text()
    guids = {name: guid for guid, name in GUID_TEXT.findall(identifiers)}
    major = re.search(r"kTypeLibraryMajor = (\d+);", identifiers).group(1)
    minor = re.search(r"kTypeLibraryMinor = (\d+);", identifiers).group(1)
    features = (include / "features.h").read_text()

    lines = [
        "// Made from the public headers; a change belongs there.",
        'import "platform.idl";',
        f"[\n    uuid({guids['LIBID_KolmFluxor']}),\n    version({major}.{minor}),",
        '    helpstring("KolmFluxor: control of IIDC cameras")\n]',
        "library KolmFluxor",
        "{",
        '    importlib("stdole2.tlb");',
        structures.read_text().rstrip(),
        *enum_lines(features, "FeatureId", "KolmFeatureId", "KolmFeature_"),
        *enum_lines(features, "FeatureMode", "KolmFeatureMode", "KolmMode_"),
        *interface_lines(
            (include / "property_set.h").read_text(),
            "Every control of a camera. Query it from the capture filter. For use inside its process and apartment: no "
            "proxy carries it elsewhere.",
        ),
        *interface_lines(
            (include / "still_image.h").read_text(),
            "Single pictures of a video capture device. For use inside its process and apartment: no proxy carries it "
            "elsewhere.",
        ),
        *class_lines(
            "CKolmFluxorPropertySet",
            guids["PROPSETID_KolmFluxor"],
            "IKolmFluxorPropertySet",
            "The object that the kernel-streaming proxy aggregates into the capture filter; it lives inside one only",
            creatable=False,
        ),
        *class_lines(
            "CKolmStillImage",
            guids["CLSID_KolmStillImage"],
            "IKolmStillImage",
            "The still-image grabber",
            creatable=True,
        ),
        "};",
    ]
    output.write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
