nop
lda #1
inx
