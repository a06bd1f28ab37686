[Version] 2.0
# GHz S RI R 50
[Number of Ports] 2
[Two-Port Data Order] 12_21
[Number of Frequencies] 2
[Network Data]
1 0.3 0.4 0.01 -0.02 2 1 -0.1 0.2
2 0.3 0.4 0.01 -0.02 2 1 -0.1 0.2
[End]
