speed = 3
main:
