|||||||
0 0 0 0 0
30.00 15.00
XIODWELLY
IODWELL 1.5 ]IODWELL A B ]Z
IODWELL   X]\
=== run 2
2026|11-24|a <@ToolId>.drw|A.nc|steel||laser.tun|Laser
100 50.13 200 100 100
30.00 15.00
XIODWELLY
IODWELL 1.5 ]IODWELL A B ]Z
IODWELL   X]\
=== run 3
today||a <@ToolId>.drw|A.nc|steel||laser.tun|Laser
3.937 1.973 7.9 3.937008 4
2.000 1.000
XIODWELLY
IODWELL 1.5 ]IODWELL A B ]Z
IODWELL   X]\
