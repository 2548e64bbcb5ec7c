L F500 S7 
1 
2 
N S7 
L 
1 
2 
N S7 
L 
1 
2 
N S7 
T 
L F600 S7 
1 
2 
N S7 
A 
A 
A F600 
L 
1 
2 
N 
