	table .db 1
