	.db "é",nowhere
