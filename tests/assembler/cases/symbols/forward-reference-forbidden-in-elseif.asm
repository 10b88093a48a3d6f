	.if 0
	.elseif later
	.endif
later = 1
