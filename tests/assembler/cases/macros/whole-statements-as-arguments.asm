both .macro
	\1
	\2
	.endm
	both lda #5,sta <$10
