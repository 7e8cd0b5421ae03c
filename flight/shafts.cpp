// The shafts between engines and propellers: each clutch passes torque and advances the
// engine's own speed; the propellers' speeds follow from the torque they get and the
// drag torque their blades make, alone or on one linked system shaft.
#include "flight/HL_FLIGHT.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include <cmath>

float get_clutch_trq(int en, float rsc_prop_side)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const float dt = mnw.prd_FM;
	const int t = v.engn_type[en];
	const int recip = t == 0 || t == 1;
	int engaged = 1;
	if (v.prop_clutch_EQ[en] && !v.has_clutchswitch) {   // an automatic clutch
		if (recip) engaged = f.ENGN_tacrad[en] > 2.0f * v.RSC_idlespeed_ENGN;
		if (t == 2 || t == 8) engaged = f.ENGN_N1_[en] > 1.0f;
	}
	float trq_max = 1.5f * v.trq_max_eng, trq_min = -1.5f * v.trq_max_eng;
	if (!engaged && !v.has_prerotate) trq_max = trq_min = 0.0f;
	if (v.props_linked && !v.has_prerotate) trq_min = 0.0f;   // a freewheel
	if (f.fail_stat[rel_pshaft0 + en] == fail_inop) trq_max = trq_min = 0.0f;
	float clutch_rat = 1.0f;
	if (v.prop_clutch_EQ[en] && v.has_clutchswitch && recip) {
		stg.clutch_rat[en] = fltlim(stg.clutch_rat[en] + (stg.clutch_trq_engag > 0.5f ? 0.02f : -0.02f) * dt, 0.0f, 1.0f);
		clutch_rat = stg.clutch_rat[en];
		trq_max = v.trq_max_eng * clutch_rat * 1.5f;
		if (!v.props_linked) trq_min = -trq_max;
	}
	const float redline = fltmax2(v.RSC_redline_ENGN, 1.0f);
	const float trq = fltlim(f.ENGN_TRQ_nm[en] + (f.ENGN_tacrad[en] - rsc_prop_side) / redline * 10.0f * v.trq_max_eng, trq_min, trq_max);
	const float on_engine = f.ENGN_TRQ_nm[en] - trq;
	f.ENGN_omegadot[en] = on_engine / fltmax2(v.mi_engn_rpm[en] * v.inertia_rat_prop, 1e-4f);
	const float before = f.ENGN_tacrad[en];
	f.ENGN_tacrad[en] += f.ENGN_omegadot[en] * dt;
	if (clutch_rat > 0.99f) {   // a locked clutch does not slip
		if ((before <= rsc_prop_side && f.ENGN_tacrad[en] > rsc_prop_side && trq_max > 0.0f) ||
		    (before >= rsc_prop_side && f.ENGN_tacrad[en] < rsc_prop_side && trq_min < 0.0f))
			f.ENGN_tacrad[en] = rsc_prop_side;
	}
	const float sgn = f.POINT_tac_rad[en] > 0.0f ? 1.0f : f.POINT_tac_rad[en] < 0.0f ? -1.0f : 0.0f;
	return trq - v.trans_loss * v.trq_max_eng * sgn;
}

// The pre-rotator spins a linked rotor toward 85% of its red line before take-off: gently
// at level 0, with all it has at level 1.
static float prerotator_trq(float system_omega)
{
	const veh_struct& v = veh[0];
	const float gear = v.prop_gear_rat[0] != 0.0f ? v.prop_gear_rat[0] : 1.0f;
	const float target = fltmax2(0.85f * v.RSC_redline_PROP * gear, 1.0f);
	const float short_of = (target - system_omega) / target;
	// Full torque until within 2% of the target, then easing off.
	const float rat = stg.pre_rotate_level >= 1 ? fltlim(75.0f * short_of, -1.5f, 1.5f) : fltlim(short_of, -0.5f, 0.5f);
	return rat * v.trq_max_eng;
}

void do_all_props()
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const float dt = mnw.prd_FM;
	const int np = intlim(v.num_thrustpoints, 0, engn_max);
	float driving[engn_max] = {};
	auto prop_point = [&](int en) { return ret_part_alive(0, en) && (v.engn_type[en] != 4 && v.engn_type[en] != 5 && v.engn_type[en] != 6); };
	auto gear_of = [&](int en) { return v.prop_gear_rat[en] != 0.0f ? v.prop_gear_rat[en] : 1.0f; };
	// Lift fans and pre-rotated rotors take the jets' power, shared evenly.
	auto fan = [&](int en) { return v.prop_type[en] == 6; };
	auto prerot = [&](int en) { return v.has_prerotate && (v.prop_type[en] == 3 || v.prop_type[en] == 7); };
	int n_fan = 0, n_pre = 0;
	for (int en = 0; en < np; en++) { n_fan += prop_point(en) && fan(en); n_pre += prop_point(en) && prerot(en); }
	for (int en = 0; en < np; en++) {
		if (!prop_point(en) || !(fan(en) || prerot(en))) continue;
		const float power = fan(en) ? f.lift_fan_total_power / fltmax2((float)n_fan, 1.0f) : f.pre_rot_total_power / fltmax2((float)n_pre, 1.0f);
		const float lim = fltmax2(v.thrust_max * v.lift_fan_rat * 340.0f / fltmax2(v.RSC_redline_ENGN, 1.0f) * 1.5f, 0.0f);
		f.ENGN_TRQ_nm[en] = fltlim(power / fltmax2(f.POINT_tac_rad[en], 1.0f), -lim, lim);
		f.ENGN_N1_[en] = 100.0f * f.POINT_tac_rad[en] / fltmax2(v.RSC_redline_ENGN, 1.0f);
		f.ENGN_power[en] = f.ENGN_TRQ_nm[en] * f.POINT_tac_rad[en];
		if (fan(en)) driving[en] = f.ENGN_TRQ_nm[en];
	}
	if (v.props_linked) {   // one system shaft
		float omega = f.POINT_tac_rad[0] * gear_of(0), engn = 0.0f, drag = 0.0f, mi = 0.01f;
		for (int en = 0; en < v.num_engines && en < engn_max; en++)
			if (v.engn_type[en] != 7) engn += get_clutch_trq(en, omega);
		for (int en = 0; en < np; en++) {
			if (!prop_point(en)) continue;
			drag += f.POINT_drag_TRQ[en] / gear_of(en);
			mi += v.mi_prop_rpm[en] / sqr(gear_of(en));
		}
		if (v.has_prerotate && stg.pre_rotating) engn += prerotator_trq(omega);
		omega += (engn - drag) / mi * dt;
		for (int en = 0; en < np; en++) {
			if (!prop_point(en)) continue;
			driving[en] = (omega / gear_of(en) - f.POINT_tac_rad[en]) / dt * v.mi_prop_rpm[en] + f.POINT_drag_TRQ[en];
			if (v.prop_type[en] == 5 && f.fail_stat[rel_trotor] == fail_inop) { driving[en] = 0.0f; f.POINT_tac_rad[en] = 0.0f; }
		}
	} else {
		for (int en = 0; en < np; en++) {
			if (!prop_point(en) || fan(en) || en >= v.num_engines || v.engn_type[en] == 7) continue;
			driving[en] = get_clutch_trq(en, f.POINT_tac_rad[en] * gear_of(en)) * gear_of(en);
		}
	}
	for (int en = 0; en < np; en++) {
		if (!prop_point(en)) continue;
		f.POINT_omega_dot[en] = (driving[en] - f.POINT_drag_TRQ[en]) / fltmax2(v.mi_prop_rpm[en], 1e-3f);
		f.POINT_tac_rad[en] += f.POINT_omega_dot[en] * dt;
		if (!(v.prop_type[en] == 5 && f.fail_stat[rel_trotor] == fail_inop)) {
			const float side = f.side_disc_cant_cyclic[en] * con.degtorad, vert = f.vert_disc_cant_cyclic[en] * con.degtorad;
			f.L -= v.prop_dir[en] * driving[en] * std::cos(side) * std::cos(vert);   // the airframe takes the reaction
			f.N += v.prop_dir[en] * driving[en] * std::cos(side) * std::sin(vert);
			f.M += v.prop_dir[en] * driving[en] * std::sin(side);
		}
		if (en < v.num_engines && !fan(en) && !prerot(en)) f.ENGN_power[en] = f.ENGN_TRQ_nm[en] * f.ENGN_tacrad[en];
		do_a_prop(en);
	}
}
