#!/usr/bin/env python3
"""Writes the characters of the code pages that rich texts are read in, from Python's own codecs.

Usage: tools/make_code_pages.py > src/platform/code_page_tables.h"""
import unicodedata

# The first one stands for every page that is not here.
PAGES = {1252: "cp1252", 437: "cp437", 850: "cp850", 852: "cp852", 866: "cp866", 874: "cp874",
         932: "cp932", 936: "cp936", 949: "cp949", 950: "cp950", 1250: "cp1250", 1251: "cp1251",
         1253: "cp1253", 1254: "cp1254", 1255: "cp1255", 1256: "cp1256", 1257: "cp1257",
         1258: "cp1258", 10000: "mac_roman", 10006: "mac_greek", 10007: "mac_cyrillic",
         10029: "mac_latin2", 10081: "mac_turkish"}
DOUBLE_BYTE = {932, 936, 949, 950}
# What is in use beyond the standard that the codec follows.
ADDED = {("cp936", b"\x80"): "\u20AC"}
NONE, LEAD_BYTE = "\uFFFD", "\uFFFF"
UPPER_HALF, LEAD_BYTES = range(0x80, 0x100), range(0x81, 0xFF)

HEAD = """#pragma once

// Made by tools/make_code_pages.py from Python's codecs. Change that, and nothing here.

#include <string_view>

namespace autonotify {

/// The characters of all pairs with one first byte, from the pair with this second byte on.
struct CodePageRow {
  unsigned char first = 0;
  std::u16string_view characters;
};

struct CodePage {
  int number;
  /// The characters of the bytes 0x80 to 0xFF: U+FFFD for none, U+FFFF for the first of a pair.
  const char16_t* upperHalf;
  /// For the first bytes from 0x81 on; nullptr for a page of single bytes.
  const CodePageRow* rows = nullptr;
};

// clang-format off
"""


def character(codec, *values):
    """NONE where there is none, or one that each program draws as it likes."""
    code = bytes(values)
    try:
        text = ADDED.get((codec, code)) or code.decode(codec)
    except UnicodeDecodeError:
        # A text may have gone through page 1252 and back: nothing of it is lost.
        return chr(values[0]) if codec == "cp1252" else NONE
    return text if len(text) == 1 and unicodedata.category(text) not in ("Cc", "Co") else NONE


def upper_half(number, codec):
    for byte in UPPER_HALF:
        single = character(codec, byte)
        is_lead = number in DOUBLE_BYTE and single == NONE and byte in LEAD_BYTES
        yield LEAD_BYTE if is_lead else single


def literal(characters):
    def spelled(c):
        is_plain = unicodedata.category(c)[0] in "LNPS"
        is_leftward = unicodedata.bidirectional(c) in ("R", "AL")
        return c if is_plain and not is_leftward else f"\\u{ord(c):04X}"
    return 'u"' + "".join(map(spelled, characters)) + '"'


def row(codec, lead):
    characters = "".join(character(codec, lead, trail) for trail in range(0x100))
    first = len(characters) - len(characters.lstrip(NONE))
    used = characters.strip(NONE)
    return f"{{0x{first:X}, {literal(used)}}}" if used else "{}"


def main():
    print(HEAD)
    for number in sorted(DOUBLE_BYTE):
        rows = ",\n".join(row(PAGES[number], lead) for lead in LEAD_BYTES).replace("{},\n", "{}, ")
        print(f"inline constexpr CodePageRow codePageRows{number}[] = {{\n{rows}}};\n")
    print("inline constexpr CodePage codePages[] = {")
    for number, codec in PAGES.items():
        rows = f", codePageRows{number}" if number in DOUBLE_BYTE else ""
        print(f"{{{number}, {literal(upper_half(number, codec))}{rows}}},")
    print("};\n// clang-format on\n\n}  // namespace autonotify")


if __name__ == "__main__":
    main()
