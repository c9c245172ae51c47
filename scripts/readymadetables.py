#!/usr/bin/env python3
"""Writes the ready-made colour tables from their sources' files.

Called by make-readymade-tables.sh, which fetches the packages. Each table is
written exactly as the program itself would save it: its note (comment
lines), then "R, G, B, name" lines with four decimals, so that loading and
saving a table gives back the same bytes.

Table files are read as Latin-1 and written as UTF-8 by the program, so a
name beyond ASCII would change at its first save. Every name is therefore
written in plain ASCII: accents are dropped and the few other letters and
signs are spelt out (see SPELT_OUT); the generator stops on any character it
has no spelling for, so that nothing unreadable slips into a table.
"""
import argparse
import ast
import json
import math
import os
import re
import sys
import unicodedata

SPELT_OUT = {
    "\u2019": "'", "\u2018": "'", "\u201c": '"', "\u201d": '"',
    "\u2026": "...", "\u2013": "-", "\u2014": "-",
    "\u00df": "ss", "\u0142": "l", "\u0141": "L", "\u0131": "i",
    "\u0153": "oe", "\u0152": "OE", "\u00e6": "ae", "\u00c6": "AE",
    "\u00f8": "o", "\u00d8": "O", "\u0111": "d", "\u0110": "D",
    "\u00f0": "d", "\u00fe": "th", "\u042f": "Ya", "\u00d7": "x",
}

GENERATOR = "scripts/make-readymade-tables.sh"


def ascii_name(name):
    out = []
    for char in name:
        if char in SPELT_OUT:
            out.append(SPELT_OUT[char])
            continue
        for part in unicodedata.normalize("NFKD", char):
            if unicodedata.combining(part):
                continue
            if ord(part) > 127:
                sys.exit("no ASCII spelling for %r in %r" % (part, name))
            out.append(part)
    # The table format collapses runs of blanks and trims; "," and "#"
    # would split a line, so the writer's own rule for "," applies.
    text = re.sub(r"[ \t]+", " ", "".join(out)).strip()
    if "#" in text:
        sys.exit("a name with '#' cannot be kept in a table: %r" % name)
    return text.replace(",", ";")


def fraction(byte):
    # The program's rounding to four decimals: trunc(v * 10000 + 0.5) / 10000.
    return "%.4f" % (math.trunc(byte / 255.0 * 10000 + 0.5) / 10000)


def hex_bytes(text):
    text = text.lstrip("#")
    return tuple(int(text[i:i + 2], 16) for i in (0, 2, 4))


def write_table(path, note, rows):
    lines = ["#" + line for line in note]
    for name, (r, g, b) in rows:
        lines.append("%s, %s, %s, %s" % (fraction(r), fraction(g), fraction(b), name))
    data = ("\n".join(lines) + "\n").encode("ascii")
    with open(path, "wb") as f:
        f.write(data)
    print("%s: %d entries, %d bytes" % (os.path.basename(path), len(rows), len(data)))


def x11_rows(path):
    """One row per distinct name: "alice blue" and "AliceBlue" are one entry,
    named by the spaced spelling; names X.Org spells one way only stay so."""
    groups = {}
    order = []
    with open(path, encoding="latin-1") as f:
        for line in f:
            if line.startswith("!") or not line.strip():
                continue
            m = re.match(r"\s*(\d+)\s+(\d+)\s+(\d+)\s+(.*\S)\s*$", line)
            if not m:
                sys.exit("unexpected line in rgb.txt: %r" % line)
            name = m.group(4)
            value = tuple(int(v) for v in m.group(1, 2, 3))
            key = name.replace(" ", "").lower()
            if key not in groups:
                groups[key] = []
                order.append(key)
            groups[key].append((name, value))
    rows = []
    for key in order:
        spellings = groups[key]
        if len({value for _, value in spellings}) != 1:
            sys.exit("spellings of one name differ in value: %r" % spellings)
        spaced = [name for name, _ in spellings if " " in name]
        rows.append((ascii_name(spaced[0] if spaced else spellings[0][0]), spellings[0][1]))
    return rows, sum(len(s) for s in groups.values())


def xkcd_rows(path):
    source = open(path, encoding="utf-8").read()
    start = source.index("XKCD_COLORS = {")
    end = source.index("}", start)
    colours = ast.literal_eval(source[start + len("XKCD_COLORS = "):end + 1])
    return [(ascii_name(name), hex_bytes(value)) for name, value in colours.items()]


def mnemonic_name(name):
    """Where dropping the accents would make a name another name's twin
    (Rose, Rose with an acute accent), an accented e keeps its accent as the
    old ASCII mnemonic e' (RFC 1345 writes e-acute as e')."""
    return ascii_name(unicodedata.normalize("NFC", name).replace("\u00e9", "e'"))


def cnl_rows(path):
    entries = json.load(open(path, encoding="utf-8"))
    plain = [e["name"] for e in entries if all(ord(c) < 128 for c in e["name"])]
    taken = {name.lower() for name in plain}
    rows = []
    twins = 0
    for e in entries:
        name = ascii_name(e["name"])
        if name != e["name"] and name.lower() in taken:
            name = mnemonic_name(e["name"])
            twins += 1
            if name.lower() in taken:
                sys.exit("no distinct ASCII spelling for %r" % e["name"])
        rows.append((name, hex_bytes(e["hex"])))
    if len({name.lower() for name, _ in rows}) != len(rows):
        sys.exit("two names of the Color Name List read alike")
    changed = sum(1 for e in entries if any(ord(c) > 127 for c in e["name"]))
    return rows, changed, twins


def ascii_note(changed, twins):
    return ("Names are plain ASCII, so that they read the same after any save: "
            "%d names lost their accents or had other letters spelt out (ss, oe, '); "
            "%d that would then read as another name keep an acute e as e' (Rose')"
            % (changed, twins))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--out", required=True)
    parser.add_argument("--x11", nargs=2, required=True, metavar=("RGB_TXT", "PACKAGE"))
    parser.add_argument("--xkcd", nargs=2, required=True, metavar=("COLOR_DATA", "PACKAGE"))
    parser.add_argument("--cnl", nargs=2, required=True, metavar=("JSON", "PACKAGE"))
    args = parser.parse_args()
    os.makedirs(os.path.join(args.out, "licences"), exist_ok=True)

    rows, lines = x11_rows(args.x11[0])
    write_table(os.path.join(args.out, "x11colours.clrtable"), [
        "X11 colour names: %d entries" % len(rows),
        "Source: /usr/share/X11/rgb.txt (X.Org's rgb.txt) of the Debian package %s" % args.x11[1],
        "Licence: MIT-style X.Org licence, text in licences/x11-common.copyright.txt",
        "The %d lines of rgb.txt give %d entries: the spaced and unspaced spellings of a name "
        "(alice blue, AliceBlue) are one entry, named by the spaced spelling" % (lines, len(rows)),
        "Generated by %s" % GENERATOR,
    ], rows)

    rows = xkcd_rows(args.xkcd[0])
    write_table(os.path.join(args.out, "xkcdcolours.clrtable"), [
        "xkcd colour survey names: %d entries" % len(rows),
        "Source: matplotlib/_color_data.py (XKCD_COLORS) of the Debian package %s; "
        "survey by Randall Munroe, https://xkcd.com/color/rgb/" % args.xkcd[1],
        "Licence: public domain (CC0 1.0), text in licences/xkcd.CC0-1.0.txt",
        "Generated by %s" % GENERATOR,
    ], rows)

    rows, changed, twins = cnl_rows(args.cnl[0])
    write_table(os.path.join(args.out, "colornamelist.clrtable"), [
        "Color Name List: %d entries" % len(rows),
        "Source: dist/colornames.json of the npm package %s, "
        "https://github.com/meodai/color-names" % args.cnl[1].replace(" ", "@"),
        "Licence: MIT, Copyright (c) 2017 David Aerne, text in licences/color-name-list.MIT.txt",
        ascii_note(changed, twins),
        "Generated by %s" % GENERATOR,
    ], rows)


if __name__ == "__main__":
    main()
