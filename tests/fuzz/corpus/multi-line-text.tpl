True
False




0
False
True
True
1
a
b
c
True
