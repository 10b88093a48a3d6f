one: nop
one: nop
