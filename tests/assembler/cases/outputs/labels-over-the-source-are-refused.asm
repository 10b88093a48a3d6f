	.labels "mlb"
	.include "more.mlb"
