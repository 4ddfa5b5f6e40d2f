"""Writes executables for macOS that hold no code, but import and export names."""

import struct

X86_64, ARM64 = 0x01000007, 0x0100000C
ENTRY_POINTS = ["main", *(f"BrevixExtension{name}" for name in ("Enumerate_UTF16", "GetMenuStatus", "Init", "Invoke", "Terminate",
                                                                "Version"))]
SYSTEM = "/usr/lib/libSystem.B.dylib"
_LIBRARY, _WEAK_LIBRARY, _SEARCH_FOLDER, _DYNAMIC_INFO = 0xC, 0x80000018, 0x8000001C, 0x80000022
# Where an import comes from that comes from no library.
PROGRAM, ANYTHING = -1, -2


def _command(kind, content):
    content += bytes(-len(content) % 8)
    return struct.pack("<2I", kind, 8 + len(content)) + content


def _number(value):
    """In two bytes, seven bits in each."""
    return bytes([value & 0x7F | 0x80, value >> 7])


def _trie(names):
    """A root with a branch for each name."""
    size = 2 + sum(len(name) + 4 for name in names)
    branches = b"".join(f"_{name}".encode() + b"\0" + _number(size + 4 * number) for number, name in enumerate(names))
    return b"\0" + bytes([len(names)]) + branches + b"\2\0\0\0" * len(names)


def _import(name, origin, weak):
    start = bytes([0x10 | origin]) if origin > 0 else bytes([0x30 | origin & 15])
    return start + bytes([0x41 if weak else 0x40]) + f"_{name}".encode() + b"\0\x90"


def machfile(processor=X86_64, exports=ENTRY_POINTS, imports=(), libraries=(SYSTEM,), weak_libraries=(), search_folders=()):
    """An import is its name, its origin (a library's number, from 1), and whether it may be missing."""
    commands = [_command(_LIBRARY, struct.pack("<4I", 24, 0, 0, 0) + path.encode() + b"\0") for path in libraries]
    commands += [_command(_WEAK_LIBRARY, struct.pack("<4I", 24, 0, 0, 0) + path.encode() + b"\0") for path in weak_libraries]
    commands += [_command(_SEARCH_FOLDER, struct.pack("<I", 12) + path.encode() + b"\0") for path in search_folders]
    at = 32 + sum(map(len, commands)) + 48
    code = b"".join(_import(*entry) for entry in imports)
    trie = _trie(exports)
    commands.append(_command(_DYNAMIC_INFO, struct.pack("<10I", 0, 0, at, len(code), 0, 0, 0, 0, at + len(code), len(trie))))
    header = struct.pack("<8I", 0xFEEDFACF, processor, 0, 8, len(commands), sum(map(len, commands)), 0x85, 0)
    return header + b"".join(commands) + code + trie


def universal(*files):
    """Of files for one processor each."""
    at = 8 + 20 * len(files)
    head = struct.pack(">2I", 0xCAFEBABE, len(files))
    for file in files:
        head += struct.pack(">5I", struct.unpack_from("<I", file, 4)[0], 0, at, len(file), 0)
        at += len(file)
    return head + b"".join(files)
