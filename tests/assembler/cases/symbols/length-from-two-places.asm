table: .db 1,2,3
LEN = *-table
	ldx #LEN
