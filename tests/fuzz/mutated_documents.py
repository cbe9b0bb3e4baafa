"""Documents that are nearly right: project files, some of whose values are replaced by what nobody
would write. mutated_documents.py FOLDER COUNT writes some, to be looked at."""

import base64
import gzip
import json
import random
import struct
import subprocess
import sys
from pathlib import Path

TESTS = Path(__file__).parent.parent
SEEDS = [TESTS / "e2e/data/show.quenara", TESTS / "data/current.quenara",
         *sorted((TESTS / "data/documents").glob("*.quenara")),
         *sorted((TESTS / "data").glob("legacy-*.json"))]
MOST_MUTATIONS = 10
# What large documents cost is measured by the benchmarks.
LONGEST_LIST = 60
LONGEST_TEXT = 3000

# As they are written, so that what JSON does not allow can stand there, too.
NUMBERS = ["0", "-0.0", "1", "-1", "0.5", "1e-30", "5e-324", "1e10", "-1e10", "1e15", "1e38",
           "1e39", "1e308", "-1e308", "1.7976931348623157e308", "2147483647", "2147483648",
           "-2147483649", "4294967296", "9007199254740993", "9223372036854775807",
           "9223372036854775808", "-9223372036854775808", "18446744073709551616", "360", "1e3",
           "99999"]
FORBIDDEN = ["1e400", "NaN", "-Infinity", "01", "+1", "'x'", "undefined", ""]
TEXTS = [
    "", " ", r"\u0000", r"\ud800", r"\udc00x", r"\udbff\udfff", r"\ufeff\ufffe\uffff",
    r"\u202e\u2066right to left", r"\u05e9\u05dc\u05d5\u05dd abc \u0639", r"\ufb03\u0149\u1e9e",
    "e" + r"\u0301" * 200, r"\u00ad" * 50, r"\u0df4\u0e33" * 300, r"\u200d\ufe0f\u20e3",
    r"\ud83d\ude00\ud83d\udc68\u200d\ud83d\udc69\u200d\ud83d\udc67", r"\n" * 100,
    r"\r\n\t\u2028\u2029", "<b>bold</b><img src='file:///dev/zero'>", "&amp;&&", "%1 %n %s [*]",
    "/dev/zero", "file:///etc/passwd", "../../../etc/passwd", "x" * LONGEST_TEXT,
    "word " * (LONGEST_TEXT // 5)]
# By the key and what stands there, as a kind may be one of several things.
RAW_VALUES = [
    ("text", "scriptureText", "songLyricText", "image", "shape", "lowerThird"),
    ("solid", "gradient", "image", "video"), ("rectangle", "capsule", "line"),
    ("blank", "service", "event", "songSet", "demo", "custom"),
    ("welcome", "song", "scripture", "message", "announcement", "closing", "custom"),
    ("vertical", "horizontal", "diagonal", "radialHint"),
    ("regular", "medium", "semibold", "bold", "heavy"), ("left", "center", "right")]
UNKNOWN_RAW_VALUES = ("Text", "IMAGE", "none", "0", "")
ENUMERATIONS = {"kind", "type", "direction", "weight", "alignment"}
# Nothing but what they are made for is read from these.
NARROW = {"schemaVersion", "updatedAt", "version"}
INTEGERS = {"orderIndex", "zIndex"}

FORMATS = ["png", "jpg", "gif", "bmp", "webp", "tiff", "ico", "cur", "ppm", "pgm", "pbm", "xpm",
           "xbm", "tga", "wbmp", "icns", "mng"]
# With {n} for a number, {r} for the name of another part, {u} for an address, {g} for many groups.
DRAWINGS = [f'<svg xmlns="http://www.w3.org/2000/svg" {rest}</svg>' for rest in (
    'viewBox="{n} 0 {n} {n}"><circle r="{n}" cx="4" cy="{n}" stroke="red" stroke-width="{n}" '
    'stroke-dasharray="{n} 1"/>',
    'xmlns:xlink="http://www.w3.org/1999/xlink" width="{n}" height="{n}"><g id="a">'
    '<use xlink:href="#{r}"/><use xlink:href="#a"/></g><g id="b"><use xlink:href="#a"/></g>'
    '<image width="9" height="9" xlink:href="{u}"/>',
    'viewBox="0 0 9 9"><defs><linearGradient id="a" xlink:href="#{r}" x1="{n}" '
    'gradientTransform="scale({n})"><stop offset="{n}" stop-color="red"/></linearGradient></defs>'
    '<path fill="url(#{r})" d="M0 0 A{n} {n} 0 1 1 {n} 4 C{n} 1 2 {n} 4 5 z"/>'
    '<style>@import url({u});</style>',
    'viewBox="0 0 9 9"><animateTransform dur="{n}s" values="{n};0"/>'
    '<polygon points="{n},0 4,{n} 1"/><switch><g transform="matrix({n} 0 0 {n} 1 1)">'
    '<rect width="{n}" height="4" rx="{n}"/></g></switch><tspan/>{g}')] + [
    '<!DOCTYPE svg [<!ENTITY a "aaaaaaaaaa"><!ENTITY b "&a;&a;&a;&a;&a;&a;">'
    '<!ENTITY x SYSTEM "{u}">]><svg xmlns="http://www.w3.org/2000/svg">'
    '<text font-size="{n}">&b;&x;</text></svg>']
NESTED_GROUPS = "<g>" * 200 + "</g>" * 200
ADDRESSES = ["/dev/zero", "file:///dev/stdin", "http://127.0.0.1:9/x.png", "#a", "data:,x",
             "data:image/svg+xml;base64,PHN2Zy8+"]


class Written(str):
    """A value as it stands in the file."""


class Record(list):
    """The (key, value) pairs of an object, where keys may repeat."""


def read(text):
    """A document as a tree of records, lists and written values."""
    def written(value):
        if isinstance(value, Record):
            return Record((key, written(member)) for key, member in value)
        if isinstance(value, list):
            return [written(element) for element in value]
        return value if isinstance(value, Written) else Written(json.dumps(value))

    return written(json.loads(text, object_pairs_hook=Record, parse_float=Written,
                              parse_int=Written))


def write(value):
    if isinstance(value, Record):
        return "{" + ", ".join(f"{json.dumps(key)}: {write(member)}" for key, member in value) + "}"
    if isinstance(value, list):
        return "[" + ", ".join(map(write, value)) + "]"
    return value


def copied(value):
    if isinstance(value, Record):
        return Record((key, copied(member)) for key, member in value)
    return [copied(element) for element in value] if isinstance(value, list) else value


def quoted(text):
    return Written(f'"{text}"')


def places(value):
    """All (container, index, key, value) below a value; the key is that of the nearest record."""
    found = []

    def visit(container, key):
        for index, member in enumerate(container):
            own_key, below = member if isinstance(container, Record) else (key, member)
            found.append((container, index, own_key, below))
            if isinstance(below, list):
                visit(below, own_key)

    visit(value, None)
    return found


def put(container, index, value):
    container[index] = (container[index][0], value) if isinstance(container, Record) else value


def is_text(value):
    return isinstance(value, Written) and value.startswith('"')


def is_number(value):
    return isinstance(value, Written) and value[:1] in set("-0123456789")


class Pictures:
    """A small picture in each format that the program reads, but for drawings."""

    def __init__(self):
        self._bytes = {}

    def of(self, name):
        if name not in self._bytes:
            self._bytes[name] = self._icon() if name == "icns" else self._converted(name)
        return self._bytes[name]

    @staticmethod
    def _converted(name):
        return subprocess.run(["convert", "-seed", "1", "-size", "24x16", "plasma:", "-colors",
                               "40", f"{name}:-"], check=True, capture_output=True).stdout

    def _icon(self):
        """An icon file, which holds PNG images."""
        image = self.of("png")
        entry = struct.pack(">4sI", b"ic07", 8 + len(image)) + image
        return struct.pack(">4sI", b"icns", 8 + len(entry)) + entry


PICTURES = Pictures()


class Mutator:
    """Changes a document, each time alike for the same seed."""

    def __init__(self, seed):
        self._random = random.Random(seed)

    def document(self):
        """The bytes of a document. One in six may well be none at all."""
        tree = read(self._random.choice(SEEDS).read_text(encoding="utf-8"))
        for _ in range(self._random.randint(1, MOST_MUTATIONS)):
            self._mutate(tree)
        data = write(tree).encode()
        if self._random.random() < 1 / 6:
            self._random.choice([self._swap_type, self._forbid])(tree)
            data = write(tree).encode()
            if self._random.random() < 0.5:
                data = self.damaged(data)
        return data

    def _mutate(self, tree):
        ways = [(self._number, 8), (self._text, 6), (self._identifier, 3), (self._list, 3),
                (self._raw_value, 3), (self._picture, 6), (self._key, 1)]
        self._random.choices(*zip(*ways))[0](tree)

    def _some(self, tree, condition):
        """A place whose key and value meet a condition; None without any."""
        found = [place for place in places(tree) if condition(place[2], place[3])]
        return self._random.choice(found) if found else None

    def _replace(self, tree, condition, value):
        place = self._some(tree, condition)
        if place:
            put(place[0], place[1], value)

    def _number(self, tree):
        place = self._some(tree, lambda key, value: is_number(value) and key not in NARROW)
        if place:
            fitting = [number for number in NUMBERS
                       if place[2] not in INTEGERS or number.lstrip("-").isdigit()]
            put(place[0], place[1], Written(self._random.choice(fitting)))

    def _text(self, tree):
        kept = ENUMERATIONS | NARROW | {"dataUrl"}
        self._replace(tree, lambda key, value: is_text(value) and key not in kept,
                      quoted(self._random.choice(TEXTS)))

    def _identifier(self, tree):
        others = [value for _, _, key, value in places(tree) if key == "id"]
        self._replace(tree, lambda key, _: key == "id",
                      self._random.choice([*others, quoted(""), quoted("\\u0000")]))

    def _raw_value(self, tree):
        place = self._some(tree, lambda key, value: key in ENUMERATIONS and is_text(value))
        if not place:
            return
        values = next((values for values in RAW_VALUES if place[3].strip('"') in values), ())
        known = values and self._random.random() < 0.95
        put(place[0], place[1],
            quoted(self._random.choice(values if known else UNKNOWN_RAW_VALUES)))

    def _list(self, tree):
        place = self._some(tree, lambda _, value: type(value) is list and value)
        if not place:
            return
        container, index, _, elements = place
        grown = [copied(self._random.choice(elements))
                 for _ in range(self._random.randint(1, LONGEST_LIST // len(elements) + 1))]
        put(container, index, self._random.choice([
            [], elements[::-1], elements[:1], elements[1:], elements + grown]))

    def _key(self, tree):
        records = [value for value in (tree, *(value for *_, value in places(tree)))
                   if isinstance(value, Record) and value]
        if not records:
            return
        record = self._random.choice(records)
        index = self._random.randrange(len(record))
        key, value = record[index]
        way = self._random.randrange(3)
        if way == 0:
            del record[index]
        elif way == 1:
            record.append((key, copied(self._random.choice(record)[1])))
        else:
            record[index] = (key.upper(), value)

    def _swap_type(self, tree):
        place = self._some(tree, lambda *_: True)
        if place:
            put(place[0], place[1], self._random.choice([
                Written("null"), Written("true"), Written("7"), Written('"7"'), [], Record(),
                [copied(place[3])], Record([("x", copied(place[3]))])]))

    def _forbid(self, tree):
        self._replace(tree, lambda *_: True, Written(self._random.choice(FORBIDDEN)))

    def _picture(self, tree):
        """Gives a place for a picture hostile bytes, making one where there is none."""
        kind, data = self.picture()
        encoded = base64.b64encode(data).decode()
        whole = f"data:image/{kind};base64,{encoded}"
        address = quoted(self._random.choice([
            whole, whole, whole, f"data:;base64,{encoded}", f"{whole[:-3]}%%", "data:",
            f"data:image/{kind}," + "".join(f"%{byte:02x}" for byte in data[:2000]),
            self._random.choice(ADDRESSES)]))
        media = Record([("dataUrl", address), ("name", quoted(f"picture.{kind}")),
                        ("mimeType", quoted(f"image/{kind}"))])
        owners = [value for _, _, _, value in places(tree) if isinstance(value, Record)
                  and any(key in ("solidColor", "frame") for key, _ in value)]
        if not owners:
            return
        owner = self._random.choice(owners)
        owner[:] = [(key, value) for key, value in owner if key not in ("kind", "image")]
        owner += [("kind", quoted("image")), ("image", media)]

    def picture(self):
        """(format, bytes) of a picture that is damaged more often than not."""
        if self._random.random() < 0.3:
            data = self._random.choice(DRAWINGS).format(
                n=self._random.choice(NUMBERS), r=self._random.choice("abc"),
                u=self._random.choice(ADDRESSES), g=NESTED_GROUPS).encode()
            if self._random.random() < 0.3:
                data = gzip.compress(data)
            return "svg+xml", self.damaged(data) if self._random.random() < 0.3 else data
        kind = self._random.choice(FORMATS)
        data = PICTURES.of(kind)
        return kind, self.damaged(data) if self._random.random() < 0.8 else data

    def damaged(self, data):
        """Bytes cut short, flipped, repeated, or with a number that is far too large."""
        damaged = bytearray(data)
        for _ in range(self._random.randint(1, 6)):
            if not damaged:
                break
            # Where formats say how large a picture is, and anywhere.
            at = self._random.randrange(min(len(damaged), self._random.choice([40, 10 ** 9])))
            way = self._random.randrange(5)
            if way == 0:
                damaged[at] ^= 1 << self._random.randrange(8)
            elif way == 1:
                damaged[at:at + 4] = self._random.choice(
                    [b"\xff\xff\xff\xff", b"\x7f\xff\xff\xff", b"\0\0\0\0", b"\0\0\xff\xff"])
            elif way == 2:
                damaged[at:at] = damaged[at:at + self._random.randint(1, 64)]
            elif way == 3:
                del damaged[at:at + self._random.randint(1, 16)]
            elif self._random.random() < 0.3:
                del damaged[at:]
        return bytes(damaged)


def mutated_document(seed):
    return Mutator(seed).document()


def main():
    folder, count = Path(sys.argv[1]), int(sys.argv[2])
    folder.mkdir(exist_ok=True)
    for seed in range(count):
        (folder / f"{seed}.quenara").write_bytes(mutated_document(seed))


if __name__ == "__main__":
    main()
