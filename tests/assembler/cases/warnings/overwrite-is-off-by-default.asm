	.org $8000
	.db 1,2,3
	.org $8000
	lda #1
