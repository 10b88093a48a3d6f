	.org later
later = $8000
