  10
	20   30
40 resto