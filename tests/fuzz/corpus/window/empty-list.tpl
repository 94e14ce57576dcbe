True
False




0
False
True
True
0

True
False
False
True
1
True
False
True
False
False
1
1
1
0
3
0












False

