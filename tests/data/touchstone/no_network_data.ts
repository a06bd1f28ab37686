[Version] 2.0
# GHz S RI R 50
[Number of Ports] 1
1 0.3 0.4
