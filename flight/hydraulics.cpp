// Hydraulic pressure: pumps on the engines (or the rotor), a ram-air turbine when they
// fail, and a failed system bleeding down over three minutes.
#include "flight/HL_FLIGHT.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"

float ret_rpm_rat(int en)
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	if (v.has_collective) return f.POINT_tac_rad[intlim(v.collective_en, 0, engn_max - 1)] / fltmax2(v.RSC_redline_PROP, 1e-3f);
	const int t = v.engn_type[en];
	if (t == 4 || t == 5) return f.ENGN_N1_[en] / 100.0f;
	if (t == 6) return 1.0f;   // a rocket's pump runs off its own turbine
	return f.ENGN_tacrad[en] / fltmax2(v.RSC_redline_ENGN, 1e-3f);
}

void update_hydraulics()
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	static float failed_at = -1.0f;
	rel.hyd_rat = 0.75f;
	if (v.ff_hydraulic && v.num_engines > 0 && f.dob_y < 20000.0) {
		rel.hyd_rat = 0.0f;
		for (int en = 0; en < v.num_engines && en < engn_max; en++) rel.hyd_rat = fltmax2(rel.hyd_rat, 3.0f * ret_rpm_rat(en));
	}
	rel.RAT_on = 0;
	if (rel.hyd_rat < 0.5f) {
		rel.RAT_on = 1;
		rel.hyd_rat = fltmax2(rel.hyd_rat, f.AV_sig_kts / fltmax2(v.Vne_kts, 1.0f));
	}
	if (f.fail_stat[rel_hydsys] == fail_inop) {
		if (failed_at < 0.0f || failed_at > mnw.totl_time) failed_at = mnw.totl_time;
		rel.hyd_rat *= fltlim(1.0f - (mnw.totl_time - failed_at) / 180.0f, 0.0f, 1.0f);
	} else {
		failed_at = -1.0f;
	}
	rel.hyd_rat = fltlim(rel.hyd_rat, 0.0f, 0.9f);
}
