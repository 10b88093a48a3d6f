	.bss
buf: .ds 5
	.rsset $10
var .rs 4
	.code
	.db SIZEOF(buf),SIZEOF(var)
