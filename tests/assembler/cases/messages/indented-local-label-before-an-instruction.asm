start:
	.loop lda #1
	jmp .loop
