ONE = 1
ONE = 2
