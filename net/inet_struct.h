// Network state: `net`. The UDP step fills it.
#pragma once

constexpr int net_slot_max = 40;   // network address slots

struct inet_struct {
	int use_ip[net_slot_max];
	int getting_loc_0;                                // a peer sets the pilot's position
	int getting_ptch, getting_roll, getting_hdng;
	int getting_ff;                                   // a peer feeds the fuel flows
	int getting_terrain;                              // a peer supplies the ground under the aircraft
	int getting_astab, getting_flightcons, getting_prop, getting_thro;   // a peer sets stability, controls, propellers, throttles
	int getting_rawjoy;                               // a peer sends raw joystick data
	int getting_camera;                               // a peer places the camera
};
