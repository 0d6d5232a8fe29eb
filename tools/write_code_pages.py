#!/usr/bin/python3
"""Writes src/panels/code_page_tables.cpp: the upper halves of the single-byte code pages, as Python knows them.

Run it again after a change here and commit what it wrote.
"""

from pathlib import Path

TARGET = Path(__file__).resolve().parent.parent / "src/panels/code_page_tables.cpp"
PAGES = {437: "cp437", 850: "cp850", 852: "cp852", 866: "cp866", 874: "cp874", 10000: "mac_roman",
         **{page: f"cp{page}" for page in range(1250, 1259)}}

HEAD = """// Written by tools/write_code_pages.py.

#include "panels/code_page_tables.h"

#include <algorithm>
#include <iterator>

namespace quillora::panels {
namespace {

"""
TAIL = """
} // namespace

const char16_t* upperHalfOfPage(int page)
{
    const auto* found = std::ranges::find(kPages, page, &Page::number);
    return found == std::end(kPages) ? nullptr : found->characters;
}

} // namespace quillora::panels
"""


def character(page, byte):
    """0xFFFD for a byte that means nothing; the control characters of 1252 stay what they are."""
    try:
        return ord(bytes([byte]).decode(PAGES[page]))
    except UnicodeDecodeError:
        return 0xFFFD


def main():
    parts = [HEAD, "// clang-format off\n"]
    parts.append("struct Page {\n    int number;\n    char16_t characters[128];\n};\n\nconstexpr Page kPages[] = {\n")
    for page in sorted(PAGES):
        parts.append(f"    {{{page}, {{\n")
        for row in range(128, 256, 8):
            parts.append("        " + " ".join(f"0x{character(page, byte):04X}," for byte in range(row, row + 8)) + "\n")
        parts.append("    }},\n")
    parts.append("};\n// clang-format on\n")
    parts.append(TAIL)
    TARGET.write_text("".join(parts), encoding="ascii")


if __name__ == "__main__":
    main()
