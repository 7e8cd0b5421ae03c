// The gyros behind the attitude indicators and heading displays, and what drives them: the
// engine-driven vacuum pump for set 0, the bus through an inverter for set 1.
#include "flight/HL_FLIGHT.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include <cmath>

void update_gyro_feeds()
{
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	const int t0 = v.engn_type[0];
	if (t0 == 4 || t0 == 5 || t0 == 6) f.vacuum = 1.0f;   // jets and rockets bleed their suction off the engine
	else {
		f.vacuum = 0.0f;
		for (int en = 0; en < v.num_engines && en < engn_max; en++)
			if (v.engn_type[en] != 4 && v.engn_type[en] != 5 && v.engn_type[en] != 6)
				f.vacuum = fltmax2(f.vacuum, std::sqrt(fltmax2(2.0f * ret_rpm_rat(en), 0.0f))) * std::sqrt(fltmax2(con.lcl_sig, 0.0f));
	}
	f.vacuum = f.fail_stat[rel_vacuum] == fail_inop ? 0.0f : fltlim(f.vacuum, 0.0f, 1.0f);
	const float volts = tot_volt_avail();
	const bool inverter_ok = volts > 0.1f && ((stg.inverter[0] && f.fail_stat[rel_invert0] != fail_inop) ||
	                                          (stg.inverter[1] && f.fail_stat[rel_invert1] != fail_inop));
	f.gyro_force[0] = f.vacuum;
	f.gyro_force[1] = inverter_ok ? volts : 0.0f;
}

// Until spin-up, drift and tumble come, both sets read the true attitude.
void manage_gyro(int g) { flt[0].the_ind[g] = flt[0].the, flt[0].phi_ind[g] = flt[0].phi, flt[0].psi_ind_mag[g] = flt[0].psi_mag_act; }
