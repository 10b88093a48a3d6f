# SPDX-License-Identifier: MIT
"""How one and the same program is written for each assembler, and how each is called."""
from pathlib import Path

BANK = 0x2000


class NesAsm:
    name = "NESasm"
    macro_call = "\t{name} {arguments}"

    def __init__(self, program):
        self.program = program

    def start(self, banks):
        return [f"\t.inesprg {(banks + 1) // 2}", "\t.ineschr 0", "\t.inesmap 4", "\t.inesmir 0"]

    def bank(self, number, address):
        return [f"\t.bank {number}", f"\t.org ${address:04X}"]

    def end_bank(self, rest):
        return [f"\t.pad $A000,$FF"] if rest else []

    def label(self, name):
        return f"{name}:"

    def zero_page(self, mnemonic, address):
        return f"\t{mnemonic} <${address:02X}"

    def data(self, values):
        return "\t.db " + ",".join(f"${value:02X}" for value in values)

    def words(self, values):
        return "\t.dw " + ",".join(values)

    def constant(self, name, value):
        return f"{name} = ${value:04X}"

    def macro(self, name, count, body):
        return [f"{name} .macro", *(line.format(*[f"\\{i + 1}" for i in range(count)]) for line in body), "\t.endm"]

    def include(self, name):
        return f'\t.include "{name}"'

    def sources(self, sources):
        """The files as this assembler needs them."""
        return sources

    def commands(self, folder, source, banks):
        return [[self.program, "--input", source, "--output", "nesasm.out"]]

    def image(self, folder):
        return (folder / "nesasm.out").read_bytes()[16:]


class Dasm(NesAsm):
    name = "dasm"

    def start(self, banks):
        return ["\tprocessor 6502"]

    def bank(self, number, address):
        return [f"\torg {number * BANK}", f"\trorg ${address:04X}"]

    def end_bank(self, rest):
        return ([f"\tds {rest},$FF"] if rest else []) + ["\trend"]

    def label(self, name):
        return name

    def zero_page(self, mnemonic, address):
        return f"\t{mnemonic} ${address:02X}"

    def data(self, values):
        return "\t.byte " + ",".join(f"${value:02X}" for value in values)

    def words(self, values):
        return "\t.word " + ",".join(values)

    def macro(self, name, count, body):
        return [f"\tMAC {name}", *(line.format(*["{%d}" % (i + 1) for i in range(count)]) for line in body), "\tENDM"]

    def include(self, name):
        return f'\tinclude "{name}"'

    def commands(self, folder, source, banks):
        return [[self.program, source, "-f3", "-odasm.out"]]

    def image(self, folder):
        return (folder / "dasm.out").read_bytes()


class Tass(Dasm):
    name = "64tass"
    macro_call = "\t#{name} {arguments}"

    def start(self, banks):
        return []

    def bank(self, number, address):
        return [f"\t.logical ${address:04X}"]

    def end_bank(self, rest):
        return ([f"\t.fill {rest},$FF"] if rest else []) + ["\t.here"]

    def macro(self, name, count, body):
        return [f"{name} .macro", *(line.format(*[f"\\{i + 1}" for i in range(count)]) for line in body), "\t.endm"]

    def include(self, name):
        return f'\t.include "{name}"'

    def commands(self, folder, source, banks):
        return [[self.program, "-q", "-b", "-X", "-o", "tass.out", source]]

    def image(self, folder):
        return (folder / "tass.out").read_bytes()


class Acme(Dasm):
    """Makes at most 64 KiB at once: a larger program becomes several, which are assembled one after the other."""
    name = "acme"
    a_program = 8
    mark = "; the next bank"
    macro_call = "\t+{name} {arguments}"

    def start(self, banks):
        return ["\t!cpu 6502"]

    def bank(self, number, address):
        return [self.mark, f"\t* = {number % self.a_program * BANK}", f"\t!pseudopc ${address:04X} {{"]

    def end_bank(self, rest):
        return ([f"\t!fill {rest},$FF"] if rest else []) + ["\t}"]

    def data(self, values):
        return "\t!byte " + ",".join(f"${value:02X}" for value in values)

    def words(self, values):
        return "\t!word " + ",".join(values)

    def macro(self, name, count, body):
        names = [f".a{i}" for i in range(count)]
        return [f"\t!macro {name} {','.join(names)} {{", *(line.format(*names) for line in body), "\t}"]

    def include(self, name):
        return f'\t!source "{name}"'

    def commands(self, folder, source, banks):
        count = (banks + self.a_program - 1) // self.a_program
        return [[self.program, "-f", "plain", "-o", f"acme{i}.out", f"main{i}.asm"] for i in range(count)]

    def sources(self, sources):
        lines = sources["main.asm"]
        starts = [i for i, line in enumerate(lines) if line == self.mark] + [len(lines)]
        for number, first in enumerate(range(0, len(starts) - 1, self.a_program)):
            end = starts[min(first + self.a_program, len(starts) - 1)]
            sources[f"main{number}.asm"] = lines[:starts[0]] + lines[starts[first]:end]
        return sources

    def image(self, folder):
        count = len(list(folder.glob("acme*.out")))
        return b"".join((folder / f"acme{i}.out").read_bytes() for i in range(count))


class Cc65(Dasm):
    name = "cc65"

    def __init__(self, program, linker):
        super().__init__(program)
        self.linker = linker

    def start(self, banks):
        return []

    def bank(self, number, address):
        return [f'\t.segment "B{number}"']

    def end_bank(self, rest):
        return [f"\t.res {rest},$FF"] if rest else []

    def label(self, name):
        return f"{name}:"

    def macro(self, name, count, body):
        names = [f"a{i}" for i in range(count)]
        return [f"\t.macro {name} {','.join(names)}", *(line.format(*names) for line in body), "\t.endmacro"]

    def include(self, name):
        return f'\t.include "{name}"'

    def commands(self, folder, source, banks):
        (folder / "cc65.cfg").write_text(
            "MEMORY {\n" + "".join(f"M{i}: start=$8000,size=$2000,fill=yes,fillval=$FF,file=%O;\n"
                                   for i in range(banks)) +
            "}\nSEGMENTS {\n" + "".join(f"B{i}: load=M{i},type=ro;\n" for i in range(banks)) + "}\n")
        return [[self.program, "-o", "cc65.o", source], [self.linker, "-C", "cc65.cfg", "-o", "cc65.out", "cc65.o"]]

    def image(self, folder):
        return (folder / "cc65.out").read_bytes()


def peers(which):
    """The assemblers that are installed; `which` finds programs."""
    found = [kind(which(kind.name)) for kind in (Dasm, Tass, Acme) if which(kind.name)]
    if which("ca65") and which("ld65"):
        found.append(Cc65(which("ca65"), which("ld65")))
    return found
