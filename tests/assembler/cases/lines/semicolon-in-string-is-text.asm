	.db "a;b";c
