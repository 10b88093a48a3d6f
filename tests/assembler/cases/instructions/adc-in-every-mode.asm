	adc #$12
	adc <$12
	adc <$12,x
	adc $1234
	adc $1234,x
	adc $1234,y
	adc [$12,x]
	adc [$12],y
