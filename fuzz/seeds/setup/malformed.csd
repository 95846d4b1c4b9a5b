[camera type/ID]
Camera 1=AB1
[system]
ACK Check=99999
[function data]
orphan
