START = $10
END = $30
	LDA (#END-#START)-$10
	.db #5,#2+#3
