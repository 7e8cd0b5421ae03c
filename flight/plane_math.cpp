// One aircraft, one pass: the choice of update by kind of aircraft, pilot input for the
// pilot's aircraft, then position bookkeeping, network and effects for all.
#include "flight/HL_FLIGHT.h"
#include "world/HL_WORLD.h"
#include "core/HL_TYPES.h"
#include "core/HL_MATH_FUN.h"
#include "core/failures.h"
#include "net/HL_NET.h"
#include "replay/HL_REPLAY.h"
#include "ui/HL_UI.h"
#include <stdexcept>

void PLANE_math_in_flight(int p)
{
	if (p < 0 || p >= acf_max) return;
	flt_struct& f = flt[p];
	if (f.update_type == 2) update_with_net(p);
	if (p == 0) set_surface_under_aircraft();
	if (f.update_type == 0 && !mnw.replay_mode) update_with_fullsim1(p);
	if (f.update_type == 0 && mnw.replay_mode) update_with_replay();
	if (f.update_type == 1 && !mnw.replay_mode) update_with_AI(p);
	update_def_angles(p);
	if (f.update_type == 0 && !mnw.replay_mode) update_with_fullsim2(p);
	if (p > 0)
		for (int w = 0; w < wpn_max; w++) attach_weapon(p, w);

	xdob_latlonel_with_xyz(f.dob_lat, f.dob_lon, f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
	f.dat_x = (float)f.dob_x; f.dat_y = (float)f.dob_y; f.dat_z = (float)f.dob_z;
	f.dat_lat = (float)f.dob_lat; f.dat_lon = (float)f.dob_lon; f.dat_ele = (float)f.dob_ele;

	if ((p == 0 && mnw.puff20) || (p > 0 && mnw.puff1)) NET_send_acf(p);
	update_effects(p);
}

void update_with_fullsim1(int p)
{
	if (p != 0) throw std::runtime_error("I cannot do an update_with_fullsim1 with p!=0!");
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	if (!msc.ai_flys) {
		// Autothrottle takes the throttle from the stick.
		int inverter_ok = (stg.inverter[0] && f.fail_stat[rel_invert0] != fail_inop) ||
		                  (stg.inverter[1] && f.fail_stat[rel_invert1] != fail_inop);
		if (tot_volt_avail() > 0.1f && inverter_ok && f.fail_stat[rel_otto] != fail_inop &&
		    nav.mode_fdir > 0 && nav.mode_thro == 10)
			mnw.assigned[4] = 0;

		if (mnw.assigned[1] && !net.getting_ptch) mnw.YK_ptch = mnw.axis[1];
		if (mnw.assigned[2] && !net.getting_roll) mnw.YK_roll = mnw.axis[2];
		if (mnw.assigned[3] && !net.getting_hdng) mnw.YK_hdng = mnw.axis[3];
		if (mnw.assigned[6]) f.l_brake_add = mnw.axis[6];
		if (mnw.assigned[7]) f.r_brake_add = mnw.axis[7];
		for (int en = 0; en < engn_max; en++) {
			if (mnw.assigned[9]) f.CONT_mixt[en] = mnw.axis[9];
			if (mnw.assigned[10]) f.CONT_heat[en] = mnw.axis[10];
		}
		if (mnw.assigned[11]) f.vect_rqst = mnw.axis[11];
		if (mnw.assigned[12]) f.swdi_rqst = mnw.axis[12];
		if (mnw.assigned[14]) f.disp_rat = mnw.axis[14];
		float thro_01 = mnw.axis[4], coll_01 = mnw.axis[5], prop_01 = mnw.axis[8], sbrk_01 = mnw.axis[13];
		for (int n = 0; n < 4; n++) {
			float tmax = f.CONT_prop_mode[n] == 3 ? v.throt_max_REV : v.throt_max_FWD;
			if (mnw.assigned[15 + n]) f.CONT_thro_ref[n] = mnw.axis[15 + n] * tmax;
			if (mnw.assigned[19 + n]) f.CONT_prop_rsc[n] = fltlim(
				v.RSC_mingreen_PROP + mnw.axis[19 + n] * (v.RSC_redline_PROP - v.RSC_mingreen_PROP),
				fltmin2(v.RSC_mingreen_PROP, v.RSC_redline_PROP), fltmax2(v.RSC_mingreen_PROP, v.RSC_redline_PROP));
			if (mnw.assigned[23 + n]) f.CONT_mixt[n] = mnw.axis[23 + n];
		}
		if (v.auto_rpm_EQ) {
			mnw.assigned[8] = mnw.assigned[4];
			if (mnw.assigned[4]) auto_set_thro_prop(thro_01, &thro_01, &prop_01);
		}

		// The throttle lever stands in for a missing collective or speedbrake lever.
		int ce = intlim(v.collective_en, 0, engn_max - 1);
		int coll_wanted = v.has_collective && v.max_pitch[ce] > v.min_pitch[ce];
		int sbrk_wanted = v.num_engines == 0 ||
		                  (v.engn_type[0] == 6 && f.m_fuel_total < 0.01f && v.sbrkEQ);
		if (JOY_function_assigned(5)) coll_wanted = 0;
		if (JOY_function_assigned(13)) sbrk_wanted = 0;
		if (coll_wanted) { coll_01 = thro_01; mnw.assigned[5] = mnw.assigned[4]; mnw.assigned[4] = 0; }
		if (sbrk_wanted) { sbrk_01 = thro_01; mnw.assigned[13] = mnw.assigned[4]; mnw.assigned[4] = 0; }

		if (mnw.assigned[13]) f.sbrk_rqst = 1.0f - sbrk_01;
		if (mnw.assigned[4])
			for (int en = 0; en < v.num_engines && en < engn_max; en++) {
				int fadec_running = stg.fadec_on[en] && f.fail_stat[rel_fadec_0 + en] != fail_inop;
				if (!fadec_running)
					set_thro(en, thro_01 * (f.CONT_prop_mode[en] == 3 ? v.throt_max_REV : v.throt_max_FWD));
			}
		if (mnw.assigned[5])
			for (int en = 0; en < v.num_thrustpoints && en < engn_max; en++)
				if (v.prop_type[en] == 3) set_ptch(en, v.max_pitch[en] + coll_01 * (v.min_pitch[en] - v.max_pitch[en]));
		if (mnw.assigned[8])
			for (int en = 0; en < v.num_thrustpoints && en < engn_max; en++)
				if (v.prop_type[en] == 1)
					f.CONT_prop_rsc[en] = fltlim(
						v.RSC_mingreen_PROP + prop_01 * (v.RSC_redline_PROP - v.RSC_mingreen_PROP),
						fltmin2(v.RSC_mingreen_PROP, v.RSC_redline_PROP), fltmax2(v.RSC_mingreen_PROP, v.RSC_redline_PROP));
	}
	mnw.YK_ptch = fltlim(mnw.YK_ptch, -1.0f, 1.0f);
	mnw.YK_roll = fltlim(mnw.YK_roll, -1.0f, 1.0f);
	mnw.YK_hdng = fltlim(mnw.YK_hdng, -1.0f, 1.0f);
	update_autopilot(p);
}
