NAME          SECTIONS
OBJSENSE
    MAX
ROWS
 N  obj
 L  c1
 G  c2
 E  c3
COLUMNS
    MARKER                 'MARKER'                 'INTORG'
    x         obj       1.0          c1        2.0
    x         c2        1.0
    MARKER                 'MARKER'                 'INTEND'
    y         obj       2.0          c1        1.0
    y         c3        1.0
    z         obj       -1.0         c2        3.0
RHS
    rhs       c1        10.0         c2        1.0
    rhs       c3        4.0          obj       -2.5
RANGES
    rng       c1        4.0          c3        2.0
BOUNDS
 UP BND       x         8.0
 LO BND       y         -1.0
 FR BND       z
 SC BND       y         6.0
SOS
 S1
    x         1.0
    z         2.0
QUADOBJ
    x         x         2.0
    x         y         1.0
ENDATA
