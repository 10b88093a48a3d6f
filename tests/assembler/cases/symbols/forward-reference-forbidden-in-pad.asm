	.pad later
later = 4
