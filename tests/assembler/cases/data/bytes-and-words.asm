	.db 1,$22,%11
	.byte 4
	.dw $1234,5
	.word $ABCD
