	.ds -1
