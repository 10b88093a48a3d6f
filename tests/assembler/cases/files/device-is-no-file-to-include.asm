	.incbin "/dev/zero"
	.include "/dev/null"
