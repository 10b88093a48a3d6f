	.labels "nl"
	.org $8000
here:	nop
