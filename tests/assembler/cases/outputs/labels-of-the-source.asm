	.rsset $10
lives .rs 1
	.bank 0
	.org $C000
reset:
	nop
	.labels "nl","dbg"	; the lines above belong into the file for debuggers, too
	.labels "mlb"
	sta lives
