	.org BASE+$10
	.db 1
BASE = $8000
