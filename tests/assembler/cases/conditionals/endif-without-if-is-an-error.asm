	.endif
