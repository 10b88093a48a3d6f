	.else
	.elseif 1
