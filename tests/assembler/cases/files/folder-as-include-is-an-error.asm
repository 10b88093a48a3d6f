	.include "sub"
