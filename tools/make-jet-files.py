#!/usr/bin/env python3
"""Writes the small Jet databases that the tests read: tools/make-jet-files.py tests/data/jet

There is no Debian package that writes such files, so this lays out their pages: the header page, a page of usage maps,
the catalogue MSysObjects from page 2 on, and for each table its definition, its rows and its long values. Indexes are
defined, but their pages are empty; readers of rows don't need them. The files are kept in the repository and made anew only when this script changes.
"""
import struct
import sys
from pathlib import Path

LONG, INTEGER, DATE, BINARY, TEXT, OLE, MEMO = 4, 3, 8, 9, 10, 11, 12
FIXED = {LONG: 4, INTEGER: 2, DATE: 8}
HEADER_KEY = bytes.fromhex("c7da396b")


def rc4(data):
    state, j = list(range(256)), 0
    for i in range(256):
        j = (j + state[i] + HEADER_KEY[i % len(HEADER_KEY)]) & 255
        state[i], state[j] = state[j], state[i]
    out, i, j = bytearray(), 0, 0
    for byte in data:
        i = (i + 1) & 255
        j = (j + state[i]) & 255
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) & 255])
    return bytes(out)


class Packed(str):
    """A text that is stored in the short form: a byte a character, with runs of two bytes between zero bytes."""


class Database:
    def __init__(self, jet4=True):
        self.jet4 = jet4
        self.size = 4096 if jet4 else 2048
        self.pages = [self.header(), None, None]
        self.maps = []  # rows of page 1: the pages of each table
        self.catalogue = []

    def header(self):
        page = bytearray(self.size)
        page[0:20] = b"\0\1\0\0Standard Jet DB\0"
        page[20] = 1 if self.jet4 else 0
        length = 128 if self.jet4 else 126
        plain = bytearray(length)
        struct.pack_into("<H", plain, 0x3A - 0x18, 0x0409)
        struct.pack_into("<H", plain, 0x3C - 0x18, 1252)
        page[0x18:0x18 + length] = rc4(plain)
        return bytes(page)

    def text(self, value):
        if not self.jet4:
            return value.encode("cp1252")
        if not isinstance(value, Packed):
            return value.encode("utf-16-le", "surrogatepass")
        out, packed = b"\xff\xfe", True
        for sign in value:
            fits = 0 < ord(sign) < 256
            if fits != packed:
                out += b"\0"
                packed = fits
            out += sign.encode("latin-1" if fits else "utf-16-le")
        return out

    # Pages of rows, of one table or of long values

    def row_page(self, owner, rows):
        """Rows grow down from the end of the page; a deleted one keeps its bytes and gets flags."""
        page = bytearray(self.size)
        page[0:2] = b"\1\1"
        page[4:8] = owner
        count_at = 12 if self.jet4 else 8
        struct.pack_into("<H", page, count_at, len(rows))
        end = self.size
        for number, (data, deleted) in enumerate(rows):
            end -= len(data)
            page[end:end + len(data)] = data
            struct.pack_into("<H", page, count_at + 2 + 2 * number, end | (0xC000 if deleted else 0))
        used = count_at + 2 + 2 * len(rows)
        assert used <= end, "too much for a page"
        struct.pack_into("<H", page, 2, end - used)
        return bytes(page)

    def add_page(self, page):
        self.pages.append(page)
        return len(self.pages) - 1

    def memo(self, data):
        """Within the row, on one page of its own, or on a chain of pages."""
        room = self.size - 64
        if len(data) <= 64:
            return struct.pack("<III", len(data) | 0x80000000, 0, 0) + data
        if len(data) <= room:
            page = self.add_page(self.row_page(b"LVAL", [(data, False)]))
            return struct.pack("<III", len(data) | 0x40000000, page << 8, 0)
        pointer = 0
        room -= 4
        for start in reversed(range(0, len(data), room)):
            part = struct.pack("<I", pointer) + data[start:start + room]
            pointer = self.add_page(self.row_page(b"LVAL", [(part, False)])) << 8
        return struct.pack("<III", len(data), pointer, 0)

    # Rows

    def row(self, columns, values):
        fixed, variable, mask = b"", [], 0
        for at, (_, kind) in enumerate(columns):
            value = values[at]
            if value is not None:
                mask |= 1 << at
            if kind in FIXED:
                form = {LONG: "<i", INTEGER: "<h", DATE: "<d"}[kind]
                fixed += struct.pack(form, value or 0)
            elif value is None:
                variable.append(b"")
            elif kind in (MEMO, OLE):
                variable.append(self.memo(self.text(value) if kind == MEMO else value))
            else:
                variable.append(self.text(value) if kind == TEXT else value)
        number = "<H" if self.jet4 else "<B"
        start = struct.pack(number, len(columns)) + fixed
        offsets, data = [], b""
        for one in variable:
            offsets.append(len(start) + len(data))
            data += one
        out = start + data
        if variable:
            for offset in [len(out)] + offsets[::-1] + [len(variable)]:
                out += struct.pack(number, offset)
        return out + mask.to_bytes((len(columns) + 7) // 8, "little")

    # Tables

    def indexes(self, named):
        """How a definition tells of its indexes: a part ahead of the columns and one behind their names. `named` gives
        each index's name and the number of its column."""
        ahead = real = logical = names = b""
        for number, (name, column) in enumerate(named):
            root = self.add_page(b"\4\1" + bytes(self.size - 2))
            ahead += bytes(12)
            columns = struct.pack("<HB", column, 1) + struct.pack("<HB", 0xFFFF, 0) * 9
            real += struct.pack("<I", 0x659) + columns + struct.pack("<IIB", 1 << 8, root, 1) + bytes(9)
            logical += struct.pack("<III", 0x659, number, number) + bytes(16)
            names += struct.pack("<H", 2 * len(name)) + name.encode("utf-16-le")
        return ahead, real + logical + names

    def definition(self, columns, rows, used, free, system, indexes):
        """The page that defines a table; `used` and `free` are the rows of its usage maps."""
        ahead, behind = self.indexes(indexes)
        names = b""
        entries = b""
        fixed_at = variable_at = 0
        for number, (name, kind) in enumerate(columns):
            is_fixed = kind in FIXED
            length = FIXED.get(kind, 0 if kind in (MEMO, OLE) else 510 if self.jet4 and kind == TEXT else 255)
            flags = (1 if is_fixed else 0) | 2
            if self.jet4:
                entries += struct.pack("<BIHHHIBBIHH", kind, 0x659, number, variable_at, number,
                                       0x0409 if kind in (TEXT, MEMO) else 0, flags, 1, 0, fixed_at, length)
                names += struct.pack("<H", 2 * len(name)) + name.encode("utf-16-le")
            else:
                entries += struct.pack("<BHHHIHBHH", kind, number, variable_at, number,
                                       0x0409 if kind in (TEXT, MEMO) else 0, 0, flags, fixed_at, length)
                names += struct.pack("<B", len(name)) + name.encode("cp1252")
            if is_fixed:
                fixed_at += FIXED[kind]
            else:
                variable_at += 1
        kind = 0x53 if system else 0x4E
        if self.jet4:
            head = struct.pack("<IIIIIQBHHHIIII", 0x659, rows, rows, 1, 0, 0, kind, len(columns), variable_at,
                               len(columns), len(indexes), len(indexes), used | 1 << 8, free | 1 << 8)
        else:
            head = struct.pack("<IIBHHHIIII", rows, rows, kind, len(columns), variable_at, len(columns), 0, 0,
                               used | 1 << 8, free | 1 << 8)
        body = head + ahead + entries + names + behind + b"\xff\xff"
        page = b"\2\1VC" + bytes(4) + struct.pack("<I", len(body)) + body
        assert len(page) <= self.size
        return page.ljust(self.size, b"\0")

    def table(self, name, columns, rows, deleted=(), system=False, page=None, indexes=()):
        """Rows are tuples of values; those whose number is in `deleted` are written and struck out."""
        if page is None:
            page = self.add_page(None)
        packed, pages, waiting = [], [], 0
        room = self.size - 32
        for number, values in enumerate(rows):
            data = self.row(columns, values)
            if waiting + len(data) + 2 > room:
                pages.append(self.add_page(self.row_page(struct.pack("<I", page), packed)))
                packed, waiting = [], 0
            packed.append((data, number in deleted))
            waiting += len(data) + 2
        pages.append(self.add_page(self.row_page(struct.pack("<I", page), packed)))
        used = len(self.maps)
        self.maps += [pages, []]
        self.pages[page] = self.definition(columns, len(rows) - len(deleted), used, used + 1, system, indexes)
        self.catalogue.append((page, name, system))

    def bytes(self):
        columns = [("Id", LONG), ("ParentId", LONG), ("Name", TEXT), ("Type", INTEGER), ("DateCreate", DATE),
                   ("DateUpdate", DATE), ("Owner", BINARY), ("Flags", LONG), ("Database", MEMO), ("Connect", MEMO),
                   ("ForeignName", TEXT), ("RmtInfoShort", BINARY), ("RmtInfoLong", OLE), ("Lv", OLE),
                   ("LvProp", OLE), ("LvModule", OLE), ("LvExtra", OLE)]
        rows = []
        for page, name, system in self.catalogue + [(2, "MSysObjects", True)]:
            rows.append((page, 0x0F000001, name, 1, 39000.5, 39000.5, b"\3\2", -0x80000000 if system else 0)
                        + (None,) * 9)
        self.table("MSysObjects", columns, rows, system=True, page=2)
        maps = [(b"\0" + struct.pack("<I", 0) + sum(1 << page for page in pages).to_bytes(64, "little"), False)
                for pages in self.maps]
        self.pages[1] = self.row_page(struct.pack("<I", 0), maps)
        return b"".join(self.pages)


TREE = [("ID", LONG), ("Name", TEXT), ("lft", LONG), ("rgt", LONG), ("Root", LONG)]
LIST = [("Id", LONG), ("Text", MEMO), ("TitleObj", MEMO), ("TextObj", MEMO), ("CompObj", MEMO), ("NameObj", TEXT),
        ("ClassObj", TEXT), ("TextUserNotes", MEMO)]
NAME = [("Name", TEXT)]

ALL_BYTES = bytes(range(256)).decode("cp1252", "surrogateescape")
# The five bytes that the code page leaves open are control characters on Windows.
ALL_BYTES = "".join(chr(ord(c) - 0xDC00) if ord(c) > 0xDC00 else c for c in ALL_BYTES)
RTF = ("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Courier New;}}\r\n\\pard\\f0\\fs20 Dim s As String\\par\r\n"
       "s = \"a \\'e4 \\{b\\}\"\\par\r\n}\r\n")
HEAD = ("VERSION 5.00\r\nBegin VB.Form Form1 \r\n   Caption         =   \"A \"\"form\"\"\"\r\n   Icon            =   "
        "\"Form1.frx\":0000\r\nEnd\r\nAttribute VB_Name = \"Form1\"\r\nAttribute VB_Exposed = False\r\n")


def library():
    base = Database()
    base.table("Tree", TREE, [
        (1, "root", 1, 14, 1),
        (5, "deleted folder", 90, 91, 1),
        (72, "Dateien, \"Texte\" & mehr", 2, 7, 1),
        (73, Packed("Gr\u00f6\u00dfe \u041f\u0440\u0438\u0432\u0435\u0442"), 3, 4, 0),
        (90, "\u65e5\u672c\u8a9e \U0001f600", 5, 6, 0),
        (75, "It's; DROP TABLE Tree --", 8, 9, 0),
        (76, "Form1", 10, 11, 0),
        (77, "nothing in it", 12, 13, 0),
        (6, "deleted record", 92, 93, 0)], deleted=(1, 8), indexes=[("PrimaryKey", 0), ("Left", 2)])
    long_text = Packed("".join(f"Line {n}: \u00e4\u00f6\u00fc 'quoted' \"twice\"\r\n" for n in range(400)))
    base.table("List", LIST, [
        (6, "gone", None, None, None, None, None, None),
        (73, Packed("Dim a\r\n\ta = \"x,y\"\r\n"), None, None, None, None, None, RTF),
        (90, "\u65e5\u672c\r\nlone \ud800 end\rmixed\nends\\ \u0000 NUL", None, None, None, "", "", ""),
        (75, long_text, None, None, None, None, None, Packed("\u0416 and a, \u0416\u0416 and b")),
        (76, None, HEAD, "Option Explicit\r\n", ALL_BYTES * 50, "Form1", "FRM", None),
        (77, None, None, None, None, None, None, None)], deleted=(0,), indexes=[("PrimaryKey", 0)])
    base.table("NameMDB", NAME, [("Team's library",)])
    return base.bytes()


def damaged():
    base = Database()
    base.table("Tree", TREE, [
        (1, "root", 1, 10, 1), (2, "A", 2, 7, 1), (3, "in A", 3, 4, 0), (4, "crosses A", 6, 9, 0),
        (5, "no place", None, None, 0)])
    base.table("List", LIST, [(3,) + ("three",) + (None,) * 6, (4,) + ("four",) + (None,) * 6,
                              (5,) + ("five",) + (None,) * 6, (9,) + ("nine",) + (None,) * 6])
    base.table("NameMDB", NAME, [])
    return base.bytes()


def without_column():
    base = Database()
    base.table("Tree", TREE, [(1, "root", 1, 2, 1)])
    base.table("List", LIST[:-1], [])
    base.table("NameMDB", NAME, [("x",)])
    return base.bytes()


def other():
    base = Database()
    base.table("Customers", [("ID", LONG), ("Name", TEXT)], [(1, "Ann"), (2, "Bob")])
    return base.bytes()


def jet3():
    base = Database(jet4=False)
    base.table("Tree", TREE, [(1, "root", 1, 6, 1), (2, "Gr\u00fc\u00dfe", 2, 5, 1), (3, "Euro \u20ac", 3, 4, 0)])
    text = "".join(f"' line {n} \u20ac\r\n" for n in range(300))
    base.table("List", LIST, [(3, text, None, None, None, None, None, "notes")])
    base.table("NameMDB", NAME, [("Old",)])
    return base.bytes()


if __name__ == "__main__":
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for name, make in {"library": library, "damaged": damaged, "without-column": without_column, "other": other,
                       "jet3": jet3}.items():
        (folder / f"{name}.mdb").write_bytes(make())
