main: jmp .end
other:
.end: nop
