table .db 1,2
words: .dw table,words
