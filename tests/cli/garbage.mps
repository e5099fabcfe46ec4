NAME garbage
ROWS
 N obj
 L c1
COLUMNS
 x obj one two three
RHS
 rhs c1 notanumber
ENDATA
