	.db 12ab
