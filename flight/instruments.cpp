// What the instruments show: indicated airspeed, altitude and vertical speed with their
// lags and blocked ports, and the turn coordinator and slip ball. The compass, gyros and
// warnings come with the instrument step.
#include "flight/HL_FLIGHT.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include <cmath>

static float pitot_ref_spd, pitot_ref_alt_pitot, pitot_ref_alt_static, pitot_ref_vvi;

void update_gauges(int p)
{
	flt_struct& f = flt[p];
	const float dt = mnw.prd_FM;
	if (f.pitot_ice < 0.1f && f.fail_stat[rel_ss_asi] != fail_inop) f.v_ind_kts = f.AV_sig_kts * f.cos_alph;
	if (f.fail_stat[rel_ss_alt] != fail_inop) f.h_ind_ft = (float)f.dob_ele * con.mtrstoft;
	if (f.fail_stat[rel_ss_tsi] != fail_inop) {
		const float k = fltlim(2.0f * dt, 0.0f, 1.0f);
		const float roll = tot_volt_avail() > 0.1f ? 0.1f * f.P + 0.6333f * f.R : 0.0f, hdng = 0.6333f * f.R;
		f.TR_roll_ind_deg = fltlim(k * roll * 8.696f + (1.0f - k) * f.TR_roll_ind_deg, -60.0f, 60.0f);
		f.TR_hdng_ind_deg = fltlim(k * hdng * 8.696f + (1.0f - k) * f.TR_hdng_ind_deg, -60.0f, 60.0f);
	}
	const float ks = fltlim(0.5f * dt, 0.0f, 1.0f);
	f.slip_ind_deg = fltlim(ks * std::atan2(f.g_side, f.g_nrml) * con.radtodeg + (1.0f - ks) * f.slip_ind_deg, -8.0f, 8.0f);
	if (f.fail_stat[rel_ss_vvi] != fail_inop) {
		const float k = fltlim(2.0f * dt, 0.0f, 1.0f);
		f.vvi_ind_fpm = k * f.Vh_fpm + (1.0f - k) * f.vvi_ind_fpm;
	}
	if (f.fail_stat[rel_pitot] == fail_inop) f.v_ind_kts = (f.h_ind_ft - pitot_ref_alt_pitot) * 0.05f + pitot_ref_spd;   // reads like an altimeter
	else { pitot_ref_spd = f.v_ind_kts; pitot_ref_alt_pitot = f.h_ind_ft; }
	if (f.fail_stat[rel_static] == fail_inop) {
		f.vvi_ind_fpm = pitot_ref_vvi;
		f.h_ind_ft = pitot_ref_alt_static;
		f.v_ind_kts = pitot_ref_spd - (f.h_ind_ft - pitot_ref_alt_static) * 0.05f;
	} else { pitot_ref_alt_static = f.h_ind_ft; pitot_ref_vvi = f.vvi_ind_fpm; }
	f.h_ind_ft += (nav.baro_setting_HG - con.sl_P_pas * con.pasto_hg) * 1000.0f;
	if (p == 0) {   // the gyros are the user's
		update_gyro_feeds();
		manage_gyro(0);
		manage_gyro(1);
	}
}
