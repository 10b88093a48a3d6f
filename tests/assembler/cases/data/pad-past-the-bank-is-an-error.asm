	.org $9000
	.pad $A001,0
