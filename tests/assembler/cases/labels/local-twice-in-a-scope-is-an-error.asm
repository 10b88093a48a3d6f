main:
.l: nop
.l: nop
