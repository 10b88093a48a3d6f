	ldx #end-start
start: .db 1,2,3
end:
	.db end-start
