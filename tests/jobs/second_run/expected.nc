(G70 Could not evaluate: @Foo)
LX0.394Y0.000
(G70 Could not evaluate: @Foo)
LX0.787
(G70 Could not evaluate: @Foo)
LX1.181
TERM X-5000.000Y-5000.000 G70
M30
=== segment 2
TERM X-5000.000Y-5000.000 G70
M30G70
=== run 2
(G70 Could not evaluate: @Foo)
LX0.394Y0.000
(G70 Could not evaluate: @Foo)
LX0.787
(G70 Could not evaluate: @Foo)
LX1.181
TERM X-5000.000Y-5000.000 G70
M30
=== segment 2
TERM X-5000.000Y-5000.000 G70
M30G70
