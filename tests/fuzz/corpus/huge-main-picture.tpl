True
False




1
32767
32767
5
