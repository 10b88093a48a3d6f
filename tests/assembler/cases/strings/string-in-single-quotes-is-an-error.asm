	.db 'ab'
