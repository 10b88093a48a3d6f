	.org $8004
	.pad $8000
