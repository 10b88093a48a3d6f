here : nop
