# SPDX-License-Identifier: MIT
"""Source files in all encodings and with all line ends, edits, and what each file must hold afterwards.

What is expected is worked out from the characters and line ends alone, without the editor's rules in mind: an edit
changes what it is about, and all else stays. A file that is not UTF-8 is expected in UTF-8.
"""
from collections import Counter
from dataclasses import dataclass

# What programmers write in comments, by the encodings that have it.
WESTERN = "; Größe der Fußnote, café à la crème"
TYPOGRAPHIC = "; the player’s score – “high”"
CENTRAL = "; Příliš žluťoučký kůň, zażółć gęślą jaźń"
RUSSIAN = "; Счёт игрока хранится здесь"
JAPANESE = "; プレイヤーの得点を表示する"
CHINESE_SIMPLE = "; 显示玩家的得分和剩余生命"
CHINESE_FULL = "; 顯示玩家的得分和剩餘生命"
KOREAN = "; 플레이어의 점수를 표시한다"
BOXES = "; ╔════════╗ ║ score  ║ ╚════════╝"
DOS_WESTERN = "; GRÖSSE IN BYTES, für Überläufe geprüft"

# Name, codec of Python, comment.
LEGACY = (("cp1252", "cp1252", WESTERN), ("cp1252-quote", "cp1252", TYPOGRAPHIC), ("latin1", "latin-1", WESTERN),
          ("cp1250", "cp1250", CENTRAL), ("latin2", "iso8859-2", CENTRAL), ("cp437", "cp437", BOXES),
          ("cp850", "cp850", DOS_WESTERN), ("cp1251", "cp1251", RUSSIAN), ("cp866", "cp866", RUSSIAN),
          ("koi8r", "koi8-r", RUSSIAN), ("sjis", "shift_jis", JAPANESE), ("sjis-kana", "shift_jis", "; ﾃﾝｽｳ ﾋｮｳｼﾞ"),
          ("sjis-one", "shift_jis", "; 点"), ("eucjp", "euc-jp", JAPANESE), ("gbk", "gbk", CHINESE_SIMPLE),
          ("big5", "big5", CHINESE_FULL), ("euckr", "euc-kr", KOREAN))
MARKED = (("utf16le", b"\xff\xfe", "utf-16-le"), ("utf16be", b"\xfe\xff", "utf-16-be"),
          ("utf32le", b"\xff\xfe\0\0", "utf-32-le"), ("utf32be", b"\0\0\xfe\xff", "utf-32-be"))
PLAIN = (("ascii", b"; the score"), ("western", WESTERN.encode()), ("japanese", JAPANESE.encode()),
         ("marked", b"\xef\xbb\xbf" + CENTRAL.encode()), ("bad-byte", WESTERN.encode() + b" caf\xe9 au lait"),
         ("bad-bytes", JAPANESE.encode() + b" \xff\xc0\xaf \xed\xa0\x80 " + RUSSIAN.encode()[:-1]),
         ("odd", "; \u2028 \u2029 \x85 \x0b \x0c \u00a0 \ufeff 👾 e\u0301 \u200b".encode()))

ENDS = {"lf": b"\n", "crlf": b"\r\n", "cr": b"\r"}


@dataclass
class Case:
    """A file, what is done to it, and what it must hold then."""
    name: str
    before: bytes
    edit: str
    after: bytes
    converts: bool


def lines_of(comment, layout):
    """The lines of a source with that comment, each with its line end."""
    if layout in ENDS:
        return [(line, ENDS[layout]) for line in (comment, b"Start:", b"\tlda #$01 ; one", b"", b"\tjmp Start")]
    if layout == "mixed":
        return [(comment, b"\r\n"), (b"Start:", b"\n"), (b"\tlda #$01 ; one", b"\r\n"), (b"", b"\r\n"),
                (b"\tjmp Start", b"\n")]
    if layout == "no-last":
        return [(comment, b"\r\n"), (b"Start:", b"\r\n"), (b"\tjmp Start", b"")]
    return [(comment, b"")]  # a single line


def edited(lines, edit):
    """The lines after an edit. What Kestrel gets as keys stands beside each in EDITS."""
    usual = Counter(end for _, end in lines if end).most_common(1)
    usual = usual[0][0] if usual else b"\n"
    first, end = lines[0]
    if edit == "first":
        mark = b"\xef\xbb\xbf" if first.startswith(b"\xef\xbb\xbf") else b""
        return [(mark + b"x" + first[len(mark):], end), *lines[1:]]
    if edit == "last":
        if lines[-1][1]:
            return [*lines, (b"x", b"")]
        return [*lines[:-1], (lines[-1][0] + b"x", b"")]
    if edit == "split":
        return [(first, end or usual), (b"x", end), *lines[1:]]
    if edit == "empty":
        mark = b"\xef\xbb\xbf" if first.startswith(b"\xef\xbb\xbf") else b""
        return [(mark + b"a", usual), (b"b", b"")]
    if edit == "undo":
        return lines
    if edit == "paste":
        return [(line, usual if end else b"") for line, end in lines]
    raise ValueError(edit)


# The keys of each edit; text in a tuple is typed.
EDITS = {"first": ("ctrl+Home", ("x",)), "last": ("ctrl+End", ("x",)),
         "split": ("ctrl+Home", "End", "Return", ("x",)),
         "empty": ("ctrl+a", "ctrl+x", ("a",), "Return", ("b",)),
         "undo": ("ctrl+Home", ("xy",), "Delete", "Return", "ctrl+z", "ctrl+z", "ctrl+z", "ctrl+z"),
         "paste": ("ctrl+a", "ctrl+c", "ctrl+x", "ctrl+v")}


def cases():
    """All of them; names tell what they are."""
    result = []

    def add(name, lines, edit, encode, converts):
        # `encode` gives the file's bytes before; afterwards it is UTF-8.
        before = encode(lines)
        after = b"".join(line + end for line, end in edited(lines, edit))
        result.append(Case(f"{len(result):03}-{name}-{edit}.asm", before, edit, after, converts))

    def joined(lines):
        return b"".join(line + end for line, end in lines)

    edits = list(EDITS)
    number = 0
    for name, comment in PLAIN:
        for layout in (*ENDS, "mixed", "no-last", "single"):
            for step in (0, 1, 3, 4):
                edit = edits[(number + step) % len(edits)]
                add(f"{name}-{layout}", lines_of(comment, layout), edit, joined, False)
            number += 1
    for name, codec, comment in LEGACY:
        for layout in ("lf", "crlf", "mixed"):
            edit = ("first", "last", "split", "undo")[number % 4]
            add(f"{name}-{layout}", lines_of(comment.encode(), layout), edit,
                lambda lines, codec=codec: joined(lines).decode().encode(codec), True)
            number += 1
    for name, mark, codec in MARKED:
        for layout in ("lf", "crlf", "cr", "mixed", "no-last"):
            edit = ("first", "last", "split", "undo")[number % 4]
            add(f"{name}-{layout}", lines_of(JAPANESE.encode(), layout), edit,
                lambda lines, mark=mark, codec=codec: mark + joined(lines).decode().encode(codec), True)
            number += 1
    return result
