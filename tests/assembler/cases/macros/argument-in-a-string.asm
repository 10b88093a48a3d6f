say .macro
	.db "<\1>"
	.endm
	say hello
