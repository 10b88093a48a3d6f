	.org $8000
	.pad $A000,5
