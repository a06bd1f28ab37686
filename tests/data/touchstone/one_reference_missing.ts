[Version] 2.0
# GHz S RI R 50
[Number of Ports] 2
[Reference] 50
[Network Data]
