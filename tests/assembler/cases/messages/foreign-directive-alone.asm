main:
	bne .end
	.proc
	.define
	.endproc
	.end
