	.include "more"
