fail nop
error nop
warning nop
	.dw fail,error,warning
