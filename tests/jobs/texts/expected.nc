M X10.000 
TX=two__words_<@ToolId>|two__words_<@ToolId>|R90.00 |H25.400 |
v R0.00 R1.000 R-90.00 
||R90.00 ||
v R0.00 R1.000 R-90.00 
M X20.000 
TX=A|A|R0.00 |H12.700 |
v R1.00 R0.000 R0.00 
L H0.000 |H0 
=== run 2
M X10.000 
TX=twowords<@ToolId>|twowords<@ToolId>|R90.00 |H100.000 |
v R0.00 R1.000 R-90.00 
||R90.00 ||
v R0.00 R1.000 R-90.00 
M X20.000 
TX=A|A|R0.00 |H50.000 |
v R1.00 R0.000 R0.00 
L H0.000 |H0 
=== run 3
M X0.394 
TX=twowords<@ToolId>|twowords<@ToolId>|R90.00 |H100.000 |
v R0.00 R1.000 R-90.00 
||R90.00 ||
v R0.00 R1.000 R-90.00 
M X0.787 
TX=A|A|R0.00 |H50.000 |
v R1.00 R0.000 R0.00 
L H0.000 |H0 
=== run 4
;WARNING: Text is not supported.
;WARNING: Text is not supported.
;WARNING: Text is not supported.
M X0.787 
L |
=== run 5
;Text ignored in incremental mode
;Text ignored in incremental mode
;Text ignored in incremental mode
M X0.787 
L R0.00 H0.000 |H0 
