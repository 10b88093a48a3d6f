	.db LOW ($1234),HIGH	($1234),PAGE  (*)
