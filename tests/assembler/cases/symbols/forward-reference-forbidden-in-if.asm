	.if later
	.endif
later = 1
