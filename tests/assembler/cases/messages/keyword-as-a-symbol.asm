bank = 5
and = 5
list = 3
if = 3
byte .equ 5
inc equ 6
word .rs 2
low: .equ 1
ASL: = 4
	.db bank,and,list,if,byte,inc,word,ASL
