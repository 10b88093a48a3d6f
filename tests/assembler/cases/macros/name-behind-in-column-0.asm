.macro put
.db \1
.endm
put 5
