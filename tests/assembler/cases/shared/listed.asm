	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
PPUCTRL = $2000
GRAVITY = 3
	.rsset $0010
pointer .rs 2
score   .rs 1
wait .macro
.w\@:	bit $2002
	bpl .w\@
	.endm
	.bank 0
	.org $C000
reset:	; start
	sei
	lda #GRAVITY
	sta PPUCTRL
	wait
	wait
.loop:
	lda [pointer],y
	sta score
	inx
	bne .loop
	.include "sub.asm"
	.if 0
	nop
	.endif
	.rept 2
	nop
	.endr
	jmp reset
nmi:	rti
text:	.db "HELLO WORLD, THIS IS A LONG TEXT"
	.nolist
	nop
	.list
	.bank 1
	.org $FFFA
	.dw nmi,reset,0
	.zp
counter: .ds 2
