A;\0A;\0ABC;\0A\
=== run 2
ABC\
=== run 3
A0/0/BC0/\
=== run 4
XA\0AY
