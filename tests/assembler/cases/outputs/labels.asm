	.inesprg 1
	.ineschr 1
	.inesmap 0
	.inesmir 1
PPUCTRL = $2000	; used as an address: a label
GRAVITY = 3	; a value only: none
SHADOW = $C000	; the same place as reset
	.rsset $0010
pointer	.rs 2
score	.rs 1
	.zp
	.org $80
frames:	.ds 1
	.bss
sprites: .ds 256
	.code
	.bank 0
	.org $0400
shadow:	.db 0	; declares RAM that code is put over
	.org $6000
saved:	.db 0	; the same in the cartridge's RAM
	.org $C000
reset:
.loop:	lda <pointer
	sta PPUCTRL
	lda #GRAVITY
	jmp .loop
nmi:
other:	jmp SHADOW
.loop:	rti
title.text:	.db "HI"
	.bank 1
	.org $E000
	.ds 8186
	.dw nmi,reset,0
end:
	.bank 2
	.org $1000
tiles:	.db 1
