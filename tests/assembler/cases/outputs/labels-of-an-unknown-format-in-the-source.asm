	nop
	.labels "nl","MLB"
