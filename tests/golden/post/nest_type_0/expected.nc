(1 cells, copy 1)
G00 X5.000 Y4.000
G01 X45.000 Y24.000 
sheet 100 x 50
used 45 x 24
