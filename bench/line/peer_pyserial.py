#!/usr/bin/python3
"""Wakes and reads pages through pyserial, blocking: peer_pyserial.py DEVICE EXCHANGES."""
import sys
import time

import serial

port = serial.Serial(sys.argv[1], 9600, stopbits=serial.STOPBITS_TWO)
before = time.process_time()
for _ in range(int(sys.argv[2])):
    port.write(b"}")
    port.read(1)
    port.write(b"a02100\r")
    port.read(50)
print(f"{time.process_time() - before:.6f}")
