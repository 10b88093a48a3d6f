main:
.loop: nop
.again nop
	.inner: nop
	.dw .loop,.again,.inner
