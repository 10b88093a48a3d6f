	.DB 1
	.Db 2
	.ByTe 3
	.IF 1
	.dW 4
	.EndIf
