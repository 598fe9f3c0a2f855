#!/usr/bin/env python3
"""Compares the export tables of DLLs with the lists of intended exports.

    check_exports.py [--update] DLL LIST [DLL LIST ...]

Each LIST holds one demangled export name a line, sorted; a constructor or
destructor appears once per variant the compiler emits. Lines starting with
'#' are comments. Without --update, prints what each DLL exports beyond its
list ("unexpected") and what it lacks ("missing") and exits with 1 if there
is any difference; with --update, rewrites the lists from the DLLs.
"""

import collections
import shutil
import struct
import subprocess
import sys

HEADER = [
    "# The exports of {dll}, demangled, one a line (constructors and",
    "# destructors once per variant). A test compares the DLL with this list;",
    "# after an intended change: cmake --build build/win --target update_exports",
]


def export_names(path):
    """The names in the export directory of a PE image (PE32 or PE32+)."""
    with open(path, "rb") as f:
        data = f.read()
    pe = struct.unpack_from("<I", data, 0x3C)[0]
    if data[pe:pe + 4] != b"PE\0\0":
        raise SystemExit(f"{path}: not a PE image")
    sections, optional_size = struct.unpack_from("<H12xH", data, pe + 6)
    optional = pe + 24
    magic = struct.unpack_from("<H", data, optional)[0]
    directories = optional + (112 if magic == 0x20B else 96)
    export_rva, export_size = struct.unpack_from("<II", data, directories)
    if export_size == 0:
        return []
    table = [struct.unpack_from("<8xIIII", data, optional + optional_size + 40 * i) for i in range(sections)]

    def offset(rva):
        for size, address, raw_size, raw in table:
            if address <= rva < address + max(size, raw_size):
                return rva - address + raw
        raise SystemExit(f"{path}: RVA {rva:#x} lies in no section")

    count, names_rva = struct.unpack_from("<24xI4xI", data, offset(export_rva))
    names = []
    for i in range(count):
        start = offset(struct.unpack_from("<I", data, offset(names_rva) + 4 * i)[0])
        names.append(data[start:data.index(b"\0", start)].decode("ascii"))
    return names


def demangle(names):
    tool = shutil.which("x86_64-w64-mingw32-c++filt") or "c++filt"
    out = subprocess.run([tool], input="\n".join(names), capture_output=True, text=True, check=True).stdout
    return sorted(out.splitlines())


def read_list(path):
    try:
        with open(path, encoding="utf-8") as f:
            return [line.rstrip("\n") for line in f if line.strip() and not line.startswith("#")]
    except FileNotFoundError:
        return []


def main(argv):
    update = argv[:1] == ["--update"]
    pairs = argv[1:] if update else argv
    if not pairs or len(pairs) % 2:
        raise SystemExit(__doc__)
    failed = False
    for dll, listed in zip(pairs[0::2], pairs[1::2]):
        actual = demangle(export_names(dll))
        name = dll.replace("\\", "/").rsplit("/", 1)[-1]
        if update:
            with open(listed, "w", encoding="utf-8", newline="\n") as f:
                f.write("\n".join(HEADER).format(dll=name) + "\n")
                f.writelines(line + "\n" for line in actual)
            print(f"{listed}: {len(actual)} exports of {name}")
            continue
        have, want = collections.Counter(actual), collections.Counter(read_list(listed))
        unexpected = sorted((have - want).elements())
        missing = sorted((want - have).elements())
        if unexpected or missing:
            failed = True
            print(f"{name} differs from {listed}:")
            print("".join(f"  unexpected: {n}\n" for n in unexpected), end="")
            print("".join(f"  missing:    {n}\n" for n in missing), end="")
        else:
            print(f"{name}: {len(actual)} exports as listed")
    if failed:
        print("An intended change? cmake --build build/win --target update_exports")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
