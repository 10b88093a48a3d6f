	nop
Code: .db 1
Fail: .db 2
db: .db 3
	.dw Code,Fail,db
