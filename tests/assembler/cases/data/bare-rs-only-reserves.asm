	.rsset $10
	.rs 4
one .rs 1
	.db one
