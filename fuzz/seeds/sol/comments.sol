# Objective value = 0
x 0 # trailing comment

y   3
