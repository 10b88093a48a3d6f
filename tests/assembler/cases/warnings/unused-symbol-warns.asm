speed = 3
lives .rs 1
score .rs 2
main:
	lda score
.spare:
	.ifdef DEBUG
	.endif
DEBUG = 1
	jmp main
