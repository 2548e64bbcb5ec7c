(Could not evaluate: sMainProgNum)
ab
(Could not evaluate: sInsideCode)
(Could not evaluate: sInsideCode)
(Could not evaluate: sHorizCode)
(Could not evaluate: sHorizCode)
cddcc
=== run 2
(Could not evaluate: @Foo)x;(Could not evaluate: @Foo)ydyy;\
=== run 3
(Could not evaluate: sMainProgNum);(Could not evaluate: sMainProgNum)ydyy;\
