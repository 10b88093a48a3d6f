	.error 'no'
