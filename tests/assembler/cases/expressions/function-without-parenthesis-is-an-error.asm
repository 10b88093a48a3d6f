	.db LOW $1234
