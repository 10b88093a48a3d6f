	.db "Hello",0
	.byte "a","b"
