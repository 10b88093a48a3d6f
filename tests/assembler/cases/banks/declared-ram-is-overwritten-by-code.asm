	.org $0300
timer: .db 0
	.org $8300
	lda timer
