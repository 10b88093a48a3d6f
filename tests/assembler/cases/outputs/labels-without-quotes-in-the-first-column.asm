reset:	nop
.labels mlb
