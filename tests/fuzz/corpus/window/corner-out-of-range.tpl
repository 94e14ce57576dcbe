True
False
40000
