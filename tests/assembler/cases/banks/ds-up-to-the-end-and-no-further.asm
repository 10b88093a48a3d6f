	.org $9FF0
	.ds 16
end:
	.org $8000
	.dw end
