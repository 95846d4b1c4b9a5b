[system]
ACK Check=0
Camera Select=1
[camera type/ID]
Camera 1=AB1|01
Camera 2=AB1|02
Camera 3=|
[scene no]
Scene=1,2
[main data]
mBar=0,0,0,0,1,1,1,1,,,,,,,,,,,,,,,,,,,,,,,,
mZOOM=3
[function scene data]
6A=00,00,01,00,01,01,01,01,,,,,,,,,,,,,,,,,,,,,,,,
[function data]
7C=00,01,,,,,,
[end]
