	.db $1G
