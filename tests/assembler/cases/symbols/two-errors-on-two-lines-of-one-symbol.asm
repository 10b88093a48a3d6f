ONE = 1
ONE = 2
ONE = 3
