	main2 lda #1
	jmp main2
	jsr main2
	.dw main2
