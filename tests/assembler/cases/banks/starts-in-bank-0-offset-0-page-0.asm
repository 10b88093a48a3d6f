here: .dw here
