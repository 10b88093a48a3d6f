	.db LOW($1234),low($1234),Low($1234),hIGH($1234)
