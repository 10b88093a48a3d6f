	.incchr "nowhere.pcx"
