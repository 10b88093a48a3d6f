	.db SIZEOF(3)
