	.db "[31m",nowhere ; 
