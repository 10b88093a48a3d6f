put .macro ; puts a byte
	.db \1 ; the byte
	.endm ; done
	put 5 ; five, not six
