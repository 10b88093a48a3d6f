	lda #';' ; not a comment yet
	.db ';',';'+1;2
