	.include "More.ASM"
