	.org $E000
first:
.labels	nop
	jmp .labels
second:
.labels:
	.if 0
.labels	.else
	inx
	.endif
	jmp .labels
third:
.labels = 5
	lda #.labels
fourth:
	.labels = 6
	lda #.labels
fifth:
.labels .equ 7
	lda #.labels
sixth:
.labels
	jmp .labels
seventh:	.labels:	jmp .labels
eighth:
m .macro
	.db \1
.labels	.endm
	m 1
