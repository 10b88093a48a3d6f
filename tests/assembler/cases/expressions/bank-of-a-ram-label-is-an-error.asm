	.bss
lives: .ds 1
	.code
	.db BANK(lives)
