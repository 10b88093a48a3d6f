	.endr
