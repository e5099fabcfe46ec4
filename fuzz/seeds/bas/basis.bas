NAME m
 XU x r
 LL y
 UL z
ENDATA
