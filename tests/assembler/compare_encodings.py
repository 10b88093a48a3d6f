#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Assembles every instruction in every mode with NESasm and with other assemblers and compares the bytes.

    compare_encodings.py NESASM               prints one line for each assembler; exit status 1 when one differs
    compare_encodings.py --self-test NESASM   does the comparison notice a wrong byte, and is no opcode left out?

The others choose zero page by themselves, so their sources force the width of every operand.
"""
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ORIGIN = 0x8200
BYTES = (0x00, 0x01, 0x7F, 0x80, 0xFE, 0xFF)
WORDS = (0x0000, 0x007F, 0x0080, 0x00FF, 0x0100, 0x7FFF, 0x8000, 0xFF00, 0xFFFF)
# Distances from the branch itself: -128, -1, 0 and 127 from the instruction behind it.
BRANCHES = (-126, 1, 2, 129)

EIGHT = ("imm", "zp", "zpx", "abs", "absx", "absy", "indx", "indy")
SHIFT = ("acc", "zp", "zpx", "abs", "absx")
MODES = {
    **dict.fromkeys("adc and cmp eor lda ora sbc".split(), EIGHT),
    **dict.fromkeys("asl lsr rol ror".split(), SHIFT),
    **dict.fromkeys("bcc bcs beq bmi bne bpl bvc bvs".split(), ("rel",)),
    **dict.fromkeys("inc dec".split(), SHIFT[1:]),
    **dict.fromkeys("cpx cpy".split(), ("imm", "zp", "abs")),
    **dict.fromkeys("brk clc cld cli clv dex dey inx iny nop pha php pla plp rti rts sec sed sei tax tay tsx txa txs "
                    "tya".split(), ("imp",)),
    "bit": ("zp", "abs"), "jmp": ("abs", "ind"), "jsr": ("abs",), "sta": EIGHT[1:],
    "ldx": ("imm", "zp", "zpy", "abs", "absy"), "ldy": ("imm", "zp", "zpx", "abs", "absx"),
    "stx": ("zp", "zpy", "abs"), "sty": ("zp", "zpx", "abs"),
}
SIZES = {"imp": 1, "acc": 1, "imm": 2, "zp": 2, "zpx": 2, "zpy": 2, "indx": 2, "indy": 2, "rel": 2,
         "abs": 3, "absx": 3, "absy": 3, "ind": 3}


def instructions():
    """Each instruction with each boundary operand: (mnemonic, mode, operand as text)."""
    for mnemonic in sorted(MODES):
        for mode in MODES[mnemonic]:
            if mode in ("imp", "acc"):
                yield mnemonic, mode, ""
            elif mode == "rel":
                for distance in BRANCHES:
                    yield mnemonic, mode, f"*{distance:+d}"
            elif SIZES[mode] == 2:
                for value in BYTES:
                    yield mnemonic, mode, f"${value:02X}"
            else:
                for value in WORDS:
                    yield mnemonic, mode, f"${value:04X}"


COMMON = {"imp": "{m}", "acc": "{m} a", "imm": "{m} #{o}", "rel": "{m} {o}", "ind": "{m} ({o})",
          "indx": "{m} ({o},x)", "indy": "{m} ({o}),y"}


def forms(zero_page, absolute, **others):
    """How an assembler writes each mode; {m} is the mnemonic, {o} the operand."""
    result = dict(COMMON)
    for register in ("", "x", "y"):
        index = "," + register if register else ""
        result["zp" + register] = zero_page + index
        result["abs" + register] = absolute + index
    return {**result, **others}


def source(first_lines, style):
    lines = [" " + style[mode].format(m=mnemonic, o=operand) for mnemonic, mode, operand in instructions()]
    return "\n".join(first_lines + lines) + "\n"


def run(folder, *command):
    result = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if result.returncode != 0:
        raise RuntimeError(f"{command[0]} failed:\n" + result.stdout.decode("utf-8", "replace")[:2000])


def with_nesasm(folder, program):
    style = forms("{m} <{o}", "{m} {o}", ind="{m} [{o}]", indx="{m} [{o},x]", indy="{m} [{o}],y")
    (folder / "nesasm.asm").write_text(source([f" .org ${ORIGIN:04X}"], style))
    run(folder, program, "--input", "nesasm.asm", "--output", "nesasm.nes")
    start = 16 + (ORIGIN & 0x1FFF)
    return (folder / "nesasm.nes").read_bytes()[start:start + sum(SIZES[mode] for _, mode, _ in instructions())]


def with_64tass(folder):
    style = forms("{m} @b {o}", "{m} @w {o}")
    (folder / "tass.asm").write_text(source([f"* = ${ORIGIN:04X}"], style))
    run(folder, "64tass", "--nostart", "--output=tass.bin", "tass.asm")
    return (folder / "tass.bin").read_bytes()


def with_dasm(folder):
    style = forms("{m}.b {o}", "{m}.w {o}", acc="{m}")
    (folder / "dasm.asm").write_text(source([" processor 6502", f" org ${ORIGIN:04X}"], style))
    run(folder, "dasm", "dasm.asm", "-f3", "-odasm.bin")
    return (folder / "dasm.bin").read_bytes()


def with_ca65(folder):
    style = forms("{m} z:{o}", "{m} a:{o}")
    (folder / "ca65.asm").write_text(source([f".org ${ORIGIN:04X}"], style))
    (folder / "ca65.cfg").write_text("MEMORY { M: start = 0, size = $10000, file = %O; }\n"
                                     "SEGMENTS { CODE: load = M, type = rw; }\n")
    run(folder, "ca65", "-o", "ca65.o", "ca65.asm")
    run(folder, "ld65", "-C", "ca65.cfg", "-o", "ca65.bin", "ca65.o")
    return (folder / "ca65.bin").read_bytes()


OTHERS = {"64tass": with_64tass, "dasm": with_dasm, "ca65": with_ca65}


def differences(ours, theirs):
    """The instructions that came out differently, as sentences."""
    at, found = 0, []
    for mnemonic, mode, operand in instructions():
        end = at + SIZES[mode]
        if ours[at:end] != theirs[at:end]:
            found.append(f"{mnemonic} {operand} ({mode}): {ours[at:end].hex(' ')} here, {theirs[at:end].hex(' ')} there")
        at = end
    if len(theirs) != at or len(ours) != at:
        found.append(f"{len(ours)} bytes here, {len(theirs)} there, {at} expected")
    return found


def opcodes(image):
    at, found = 0, set()
    for _, mode, _ in instructions():
        found.add(image[at])
        at += SIZES[mode]
    return found


def check(program):
    count, failed = sum(1 for _ in instructions()), 0
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        ours = with_nesasm(folder, program)
        for other, assemble in OTHERS.items():
            if shutil.which(other) is None:
                print(f"{other} is not installed: apt-get install 64tass dasm cc65")
                failed += 1
                continue
            found = differences(ours, assemble(folder))
            print(f"{other}: {count} instructions, {len(found)} differences")
            for sentence in found[:20]:
                print("  " + sentence)
            failed += bool(found)
    return failed


def self_test(program):
    with tempfile.TemporaryDirectory() as name:
        image = with_nesasm(Path(name), program)
    failed = 0
    if len(opcodes(image)) != 151:
        print(f"{len(opcodes(image))} opcodes are compared, 151 exist")
        failed += 1
    for at in range(len(image)):
        wrong = image[:at] + bytes([image[at] ^ 1]) + image[at + 1:]
        if len(differences(image, wrong)) != 1:
            print(f"a wrong byte {at} is not noticed")
            failed += 1
    if not differences(image, image + b"\xff") or not differences(image, image[:-1]):
        print("a wrong length is not noticed")
        failed += 1
    if differences(image, image):
        print("false alarm")
        failed += 1
    print(f"{len(image)} wrong bytes tried, {failed} problems")
    return failed


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "--self-test":
        sys.exit(1 if self_test(str(Path(sys.argv[2]).resolve())) else 0)
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(1 if check(str(Path(sys.argv[1]).resolve())) else 0)
