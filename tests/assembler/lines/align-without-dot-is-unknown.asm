	align 16
