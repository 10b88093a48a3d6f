main:
.fail
