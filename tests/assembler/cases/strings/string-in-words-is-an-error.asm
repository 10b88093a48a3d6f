	.dw "ab"
