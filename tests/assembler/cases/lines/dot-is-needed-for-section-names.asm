	nop
code lda #1
data lda #2
zp lda #3
bss lda #4
	.dw code,data,zp,bss
