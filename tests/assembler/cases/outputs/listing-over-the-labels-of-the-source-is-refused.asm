	.labels "nl"
	nop
