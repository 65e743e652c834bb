#!/usr/bin/env python3
"""Writes src/platform/case_tables.cpp: Unicode's simple case mapping as ranges.

Usage: python3 tools/make_case_tables.py > src/platform/case_tables.cpp

The simple mapping takes one character to one. Python offers the full mapping,
so of that only the results of one character are taken; where the upper-case
form has several, the title-case form serves if it is one character, as it does
in the simple mapping. U+0130 is the one character whose lower-case form is
longer: its simple form is the first character.
"""
import sys
import unicodedata


def upper(character):
    for text in (character.upper(), character.title()):
        if len(text) == 1:
            return text
    return character


def lower(character):
    return character.lower()[0]


def ranges(mapping):
    """Runs of equally spaced characters with one difference: (first, last, step, delta)."""
    result = []
    for code in range(0x80, 0x110000):
        if 0xD800 <= code < 0xE000:
            continue
        delta = ord(mapping(chr(code))) - code
        if delta == 0:
            continue
        if result:
            first, last, step, run_delta = result[-1]
            gap = code - last
            if delta == run_delta and gap <= 2 and (first == last or gap == step):
                result[-1] = (first, code, gap, delta)
                continue
        result.append((code, code, 1, delta))
    return result


def table(name, mapping):
    rows = ranges(mapping)
    print(f"constexpr std::array<CaseRange, {len(rows)}> {name}Rows = {{{{")
    for first, last, step, delta in rows:
        print(f"    {{0x{first:04X}, 0x{last:04X}, {step}, {delta}}},")
    print("}};")
    print()


def main():
    print("// Simple case mapping of Unicode " + unicodedata.unidata_version + " beyond ASCII.")
    print("// Written by tools/make_case_tables.py; change it there, not here.")
    print('#include "platform/case_tables.h"')
    print()
    print("#include <array>")
    print()
    print("namespace pactora::platform {")
    print("namespace {")
    print()
    print("// clang-format off")
    table("kUpper", upper)
    table("kLower", lower)
    print("// clang-format on")
    print("}  // namespace")
    print()
    print("constinit const std::span<const CaseRange> kUpperRanges = kUpperRows;")
    print("constinit const std::span<const CaseRange> kLowerRanges = kLowerRows;")
    print()
    print("}  // namespace pactora::platform")


if __name__ == "__main__":
    sys.exit(main())
