	.db nowhere,nowhere+1,2,elsewhere
