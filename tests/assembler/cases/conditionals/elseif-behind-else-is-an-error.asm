	.if 0
	.else
	.elseif 1
	.endif
