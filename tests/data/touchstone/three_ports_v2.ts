[Version] 2.0
# GHz S RI R 50
[Number of Ports] 3
