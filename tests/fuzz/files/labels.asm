	.labels "mlb"
	.include "one.asm"
.labels:	jmp .labels
	.labels "dbg", "nl"
;;;
	.if 0
.labels	.else
	.labels "nl"
	.endif
	.warning "a	b"
;;;
.labels = 5
;;;
;;;
;;;
