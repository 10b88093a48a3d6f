	.db REGION
	.ifdef DEBUG
	.db DEBUG
	.endif
