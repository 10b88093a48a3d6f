	.inesmap 1
