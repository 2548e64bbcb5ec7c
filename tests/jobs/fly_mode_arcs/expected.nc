(maxratio: 5.000000  ratio: 4.500000)
PRE
(maxratio: 5.000000  ratio: 4.500000)
LX10.000Y20.000
(maxratio: 5.000000  ratio: 9.000000)
PRE
AX30.000Y0.000
(maxratio: 5.000000  ratio: 9.000000)
AX20.000Y-10.000
LX0.000
=== run 2
(maxratio: inf  ratio: 4.500000)
PRE
(maxratio: inf  ratio: 4.500000)
LX10.000Y20.000
(maxratio: inf  ratio: 9.000000)
(maxratio: inf  ratio: 4.500000)
AX30.000Y0.000
(maxratio: inf  ratio: 9.000000)
AX20.000Y-10.000
PRE
LX0.000
