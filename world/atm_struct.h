// Weather settings and the current wind: `atm`. The atmosphere step fills it.
#pragma once

struct atm_struct {
	float wind_x_msc, wind_y_msc, wind_z_msc;   // wind at the aircraft, local frame (m/s)
};
