	.include "my file.asm" ; and a comment
	.incbin  "my data.bin"  ,  1  
