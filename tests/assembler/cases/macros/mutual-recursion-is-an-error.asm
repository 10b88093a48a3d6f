ping .macro
	pong
	.endm
pong .macro
	ping
	.endm
	ping
