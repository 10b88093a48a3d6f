	.org $9FFE
	.pad $A000,3
