BASE = $8000
	.org BASE+$10
	.db 1
