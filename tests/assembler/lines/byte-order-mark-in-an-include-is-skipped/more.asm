here: nop
