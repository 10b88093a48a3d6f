	.align later
later = 4
