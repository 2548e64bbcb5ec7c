Could not evaluate: @Foo
(Could not evaluate: @Bar
(Could not evaluate: RTD(1))
(Could not evaluate: @Baz)
N10AB
(Could not evaluate: @foo)
(Could not evaluate: RTD(2,3))
=== run 2
Could not evaluate: @Foo
Could not evaluate: @Bar
N10AB
