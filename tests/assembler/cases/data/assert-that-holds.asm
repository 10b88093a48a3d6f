	.org $8000
	.assert 1
	.assert * = $8000,"moved"
	.db 1
