	nop ; lda #1
;	nop
	nop
