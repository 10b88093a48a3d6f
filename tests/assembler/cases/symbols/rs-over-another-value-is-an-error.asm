	.rsset 4
ONE = 1
ONE .rs 1
