; a comment alone
	nop ; behind an instruction
label: ; behind a label
	;indented
	lda #1;2
