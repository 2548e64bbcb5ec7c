X5.000Y5.000
MX8.000Y0.500
LX18.000
MX20.000Y0.000
LX30.000
MX50.000
T
CALL
(Warning: Applying tool offsets. This will not be correct if this subprogram is called with a mirror or a rotation.)
MX-2.000Y0.500
LX10.000
=== run 2
X5.000Y5.000
MX10.000Y0.000
LX20.000
LX30.000
MX50.000
T
CALL
M
LX10.000
