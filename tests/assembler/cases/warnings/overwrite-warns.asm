	.org $8000
	.db 1,2,3,4,5,6
	.org $8001
	lda #1
	tax
	.org $8005
	nop
	nop
