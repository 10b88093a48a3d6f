calc .macro
	.db 6 \1 3
	.endm
	calc +
	calc *
	calc <<
