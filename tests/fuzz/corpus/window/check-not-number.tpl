True
False




x
