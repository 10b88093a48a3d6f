foo = bar+1
bar = 5
	.ds foo
	.ds later
later = 1
