=== run 2
=== run 3
()0
INIT 0.0000.000
TERM
END
