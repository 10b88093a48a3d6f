	.assert 1 = 2
