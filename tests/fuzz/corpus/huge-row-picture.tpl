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


1
1
1
Custom
0:3:0
Click
1
No

Yes
True
Yes
2147483647
2147483647
1
