	.assert end < 3,"too long"
	nop
end:
