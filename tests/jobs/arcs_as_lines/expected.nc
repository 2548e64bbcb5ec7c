(WARNING: Short arc being treated as short line)
L X10.00 Y0.00 Y0.01 t3 b4
A X10.00 Y0.00 I-10.00 J0.00 
(WARNING: Short arc being treated as short line)
L t3 b4
(WARNING: zero radius arc being treated as zero length line)
L X0.00 t3 b4
L X23.04 Y12.82 t3 b4
L X47.85 Y21.85 t3 b4
L X73.67 Y27.34 t3 b4
L X100.00 Y28.68 t3 b4
A X100.00 Y34.01 I100.00 J-130.00 
L X0.00 Y0.00 X25.29 Y11.49 t3 b4
L X52.28 Y18.23 t3 b4
L X80.00 Y20.00 t3 b4
(WARNING: Short arc being treated as short line)
L X10.00 Y0.00 Y0.02 t3 b4
(WARNING: type 3 maps to tool 0.  Arc ignored.)
=== run 2
(WARNING: Short arc being treated as short line)
L X10.00 Y0.00 Y0.01 t3 b4
A X0.00 Y-10.00 -10.00 
A X10.00 Y-0.01 10.00 
(WARNING: Short arc being treated as short line)
L Y0.00 t3 b4
(WARNING: zero radius arc being treated as zero length line)
L X0.00 t3 b4
L X23.04 Y12.82 t3 b4
L X47.85 Y21.85 t3 b4
L X73.67 Y27.34 t3 b4
L X100.00 Y28.68 t3 b4
L X0.00 Y0.00 X22.32 Y15.02 t3 b4
L X47.03 Y25.75 t3 b4
L X73.15 Y32.30 t3 b4
L X100.00 Y34.01 t3 b4
L X0.00 Y0.00 X25.29 Y11.49 t3 b4
L X52.28 Y18.23 t3 b4
L X80.00 Y20.00 t3 b4
(WARNING: Short arc being treated as short line)
L X10.00 Y0.00 Y0.02 t3 b4
(WARNING: type 3 maps to tool 0.  Arc ignored.)
