name = 1
main:
.name = 2
	.db name,.name
