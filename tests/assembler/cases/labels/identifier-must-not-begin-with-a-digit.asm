1abc: nop
