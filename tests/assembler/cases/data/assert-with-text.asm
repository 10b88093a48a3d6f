	.assert 0,"the table is too long"
