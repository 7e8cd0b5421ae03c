// Radios, autopilot modes and targets: `nav`. The radio and autopilot steps fill it.
#pragma once

struct nav_struct {
	float baro_setting_HG;   // altimeter setting, inches of mercury
	int mode_fdir;           // flight director: 0 off
	int mode_thro;           // 10: autothrottle holds speed
};
