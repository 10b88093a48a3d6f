one:
.l: bne .l
two:
.l: bne .l
