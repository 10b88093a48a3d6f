	.db "A"+1
