// the main program
#include "macros.asm"
	* = $8000
start:
	lda #1 // one
	tax // to x
	.zp
	.ds 1
	.org $C000
	.code
put .macro value, place
	lda #value
	sta place
	.endm
	put 1,$10
