bank: = 5
and: .equ 6
equ: = 7
	.db bank,and,equ
	lda <equ
	adc equ
