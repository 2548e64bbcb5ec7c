L X100.000 Y0.000 X105.000 Y10.000 
(WARNING: program A calls itself.  Call ignored.)
L X20.000 Y0.000 X23.000 Y0.000 
(WARNING: program A calls itself.  Call ignored.)
(WARNING: program M calls itself.  Call ignored.)
(WARNING: program M calls itself.  Call ignored.)
L X0.000 Y10.000 X3.000 Y10.000 
L X50.000 Y0.000 X60.000 Y5.000 
(WARNING: program A calls itself.  Call ignored.)
(WARNING: program B calls itself.  Call ignored.)
(WARNING: program M calls itself.  Call ignored.)
