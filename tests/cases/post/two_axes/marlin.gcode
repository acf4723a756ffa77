; part.T2G
; for Marlin 2.1 X/A/B
G21
G90
M400
G92.9 A0
G0 X0 F12000
G4 S1.000
G1 X8 F480
M0 Wait for the button
M117 Winding Schedule
M117 Layer 1 of 2
; Layer 1 of 2, pass 1 of 2
G1 X16 A120 F240
G1 X8 A240 F240
G1 A450 F3600
; Layer 1 of 2, pass 2 of 2
G1 X16 A570 F240
G1 A850 F3600
M117 Winding Process Complete
M400
