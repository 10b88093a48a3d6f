	.db ';x'
