# SPDX-License-Identifier: MIT
"""The programs of the comparison, generated anew and always the same."""
import random

BANK = 0x2000
START = 0x8000
IMPLIED = ["tax", "tay", "txa", "tya", "inx", "iny", "dex", "dey", "clc", "sec", "pha", "pla", "nop"]
READS = ["lda", "ldx", "ldy", "adc", "cmp", "and", "ora", "eor", "sbc"]
BRANCHES = ["bne", "beq", "bcc", "bcs", "bpl", "bmi"]
MACRO_BODY = ["\tlda #{0}", "\tsta {1}", "\tldx #{2}", "\tstx {3}", "\tinx", "\tdey"]
MACRO_SIZE = 12


class Writer:
    """Writes lines for one language and counts the bytes that they make."""

    def __init__(self, language):
        self.language = language
        self.lines = []
        self.size = 0

    def add(self, line, size=0):
        self.lines.append(line)
        self.size += size


def body(writer, random_, line_count, most_bytes, prefix):
    """Code and data with labels that begin with `prefix`; at most `most_bytes` of them."""
    language = writer.language
    first, start, number = len(writer.lines), writer.size, 0
    label_at = writer.size
    writer.add(language.label(f"{prefix}_{number}"))
    while len(writer.lines) - first < line_count and writer.size - start < most_bytes - 12:
        kind = random_.random()
        if kind < 0.14:
            number += 1
            label_at = writer.size
            writer.add(language.label(f"{prefix}_{number}"))
        elif kind < 0.30:
            writer.add(f"; what follows here moves object {random_.randrange(1000)} on the screen")
        elif kind < 0.40:
            writer.add(f"\t{random_.choice(IMPLIED)}", 1)
        elif kind < 0.55:
            writer.add(f"\t{random_.choice(READS)} #${random_.randrange(256):02X}\t; a constant", 2)
        elif kind < 0.68:
            writer.add(language.zero_page(random_.choice(READS), random_.randrange(256)), 2)
        elif kind < 0.76:
            writer.add(f"\tsta ${random_.randrange(0x200, 0x800):04X},x", 3)
        elif kind < 0.86 and writer.size - label_at < 100:
            writer.add(f"\t{random_.choice(BRANCHES)} {prefix}_{number}", 2)
        elif kind < 0.92:
            # Back and, as the next label always comes, forth.
            writer.add(f"\tjsr {prefix}_{random_.randrange(number + 2)}", 3)
        elif kind < 0.96:
            values = [random_.randrange(256) for _ in range(4)]
            writer.add(language.data(values), len(values))
        else:
            writer.add(language.words([f"{prefix}_{random_.randrange(number + 1)}", "SPEED+3"]), 4)
    writer.add(language.label(f"{prefix}_{number + 1}"))


def large(language, line_count=221_000, banks=64):
    """(a) many lines in many banks."""
    random_ = random.Random(1)
    writer = Writer(language)
    writer.lines += language.start(banks) + [language.constant("SPEED", 0x1234)]
    for bank in range(banks):
        writer.lines += language.bank(bank, START)
        writer.size = 0
        body(writer, random_, line_count // banks - 4, BANK, f"label{bank}")
        writer.lines += language.end_bank(BANK - writer.size)
    return {"main.asm": writer.lines}, banks


def macros(language, calls=20_000):
    """(b) many calls of macros."""
    random_ = random.Random(2)
    a_bank = BANK // MACRO_SIZE
    banks = (calls + a_bank - 1) // a_bank
    lines = language.start(banks) + language.macro("setup", 4, MACRO_BODY)
    for bank in range(banks):
        lines += language.bank(bank, START)
        count = min(a_bank, calls - bank * a_bank)
        for _ in range(count):
            values = [random_.randrange(256), f"${random_.randrange(0x200, 0x800):04X}",
                      random_.randrange(256), f"${random_.randrange(0x200, 0x800):04X}"]
            lines.append(language.macro_call.format(name="setup", arguments=",".join(map(str, values))))
        lines += language.end_bank(BANK - count * MACRO_SIZE)
    return {"main.asm": lines}, banks


def includes(language, files=400, a_bank=25):
    """(c) many included files."""
    random_ = random.Random(3)
    banks = files // a_bank
    lines = language.start(banks) + [language.constant("SPEED", 0x1234)]
    sources = {"main.asm": lines}
    for bank in range(banks):
        lines += language.bank(bank, START)
        size = 0
        for number in range(bank * a_bank, (bank + 1) * a_bank):
            writer = Writer(language)
            body(writer, random_, 120, BANK // a_bank, f"file{number}")
            sources[f"part{number}.inc"] = writer.lines
            lines.append(language.include(f"part{number}.inc"))
            size += writer.size
        lines += language.end_bank(BANK - size)
    return sources, banks


def small(language):
    """(d) a program of 60 lines: the time to start."""
    random_ = random.Random(4)
    writer = Writer(language)
    writer.lines += language.start(1) + [language.constant("SPEED", 0x1234)] + language.bank(0, START)
    body(writer, random_, 52, BANK, "small")
    writer.lines += language.end_bank(BANK - writer.size)
    return {"main.asm": writer.lines}, 1


CASES = {"large": large, "macros": macros, "includes": includes, "small": small}
