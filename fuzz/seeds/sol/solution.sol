# Objective value = 2.5
x 1
y 0.5
z -1e-07
