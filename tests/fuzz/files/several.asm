	.inesprg 1
	.include "one"
	.bank 1
	.incbin "data.bin",1,2
	.incchr "picture.pcx"
;;;
m .macro
	lda \1
	.include "two.inc"
	.endm
	m #5
;;;
x\@:	.db "a",LOW(x)
;;;
abcdefgh;;;
tiles;;;
