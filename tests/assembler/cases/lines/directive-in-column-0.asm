db 1
.db 2
word 3
