// The integration of the pilot's aircraft: two sub-steps of forces, accelerations and
// a semi-implicit Euler step, with attitude carried on the quaternion, then the air
// data derived from the new state.
#include "flight/HL_FLIGHT.h"
#include "core/HL_TYPES.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/failures.h"
#include "world/HL_WORLD.h"
#include <cmath>
#include <stdexcept>

static float running_Rdot = 0.0f;   // low-passed yaw acceleration for the stiction on the ground

// Rotation from the local frame to the horizon at the aircraft, for the vertical speed
// far from the reference point.
void ret_q_shift(const flt_struct& f, float q[4]) { ret_q_horizon(f.dob_lat, f.dob_lon, ret_lat_ref(), ret_lon_ref(), q); }

static void set_trig(flt_struct& f)
{
	const float k = con.degtorad;
	f.sin_the = std::sin(f.the * k); f.cos_the = std::cos(f.the * k);
	f.sin_psi = std::sin(f.psi * k); f.cos_psi = std::cos(f.psi * k);
	f.sin_phi = std::sin(f.phi * k); f.cos_phi = std::cos(f.phi * k);
}

void update_derived_flt(int p)
{
	flt_struct& f = flt[p];
	float qs[4], ve, vu, vs;
	ret_q_shift(f, qs);
	rot_quat(qs, f.vx, f.vy, f.vz, &ve, &vu, &vs);
	f.V_msc = pythag(f.vx, f.vy, f.vz);
	f.Qstatic = 0.5f * con.lcl_r_met * f.AV_msc * f.AV_msc;   // last sub-step's airspeed
	f.Mach = con.lcl_a > 0.0f ? f.AV_msc / con.lcl_a : 0.0f;
	f.AV_sig_kts = f.Mach * con.lcl_a * con.msctokts * std::sqrt(fltmax2(con.lcl_sig, 0.0f));
	f.Vh_fpm = vu * con.msctofpm;
	f.psi_mag_act = fltwrap(f.psi + env.mag_var, 0.0f, 360.0f);
	float svx, svy, svz;
	f.terrain_y_cg = find_local_y((float)f.dob_x, (float)f.dob_z, &svx, &svy, &svz, &f.i, &f.j, 1);
	f.y_agl_mtr = (float)(f.dob_y - veh[p].h_eqlbm - f.terrain_y_cg);
	update_gauges(p);
	float h = fltlim(pythag(f.vx, f.vz), 0.01f, 9.9e9f);
	f.v_path = std::atan(f.vy / h) * con.radtodeg;
	f.h_path = fltwrap(std::atan2(f.vx, -f.vz) * con.radtodeg, 0.0f, 360.0f);
	set_trig(f);
	wrl_to_any(f.vx, f.vy, f.vz, &f.vx_acf_axis, &f.vy_acf_axis, &f.vz_acf_axis,
	           f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
	ret_wind_spds_acf(0.0f, 0.0f, 0.0f, &f.vx_air_on_acf, &f.vy_air_on_acf, &f.vz_air_on_acf, 1);
	f.alpha = std::atan2(f.vy_air_on_acf, f.vz_air_on_acf) * con.radtodeg;
	f.beta = std::atan2(f.vx_air_on_acf, std::fabs(f.vz_air_on_acf)) * con.radtodeg;
	f.sin_alph = std::sin(f.alpha * con.degtorad); f.cos_alph = std::cos(f.alpha * con.degtorad);
	f.sin_beta = std::sin(f.beta * con.degtorad); f.cos_beta = std::cos(f.beta * con.degtorad);
	f.AV_msc = pythag(f.vx_air_on_acf, f.vy_air_on_acf, f.vz_air_on_acf);
}

static void sum_mass_and_inertia(flt_struct& f, const veh_struct& v)
{
	const int slung = v.jett_is_slung;   // a slung load hangs on its line, not in the airframe
	f.m_total = (1.0f + f.frame_ice) * v.m_empty + f.m_fixed + (slung ? 0.0f : f.m_jettison) +
	            f.jato_left * v.jato_thrust * v.jato_sfc / 3600.0f / con.g;
	f.Jxx_total = v.Jxx_unitmass * f.m_total;
	f.Jyy_total = v.Jyy_unitmass * f.m_total;
	f.Jzz_total = v.Jzz_unitmass * f.m_total;
	inc_weapon_masses();
	for (int t = 0; t < tank_max; t++)
		if (f.m_fuel[t] != 0.0f) inc_mass_mi(v.tank_X[t], v.tank_Y[t], v.tank_Z[t], f.m_fuel[t], "fuel tank");
	for (int en = 0; en < v.num_thrustpoints && en < engn_max; en++)
		if (f.fail_stat[rel_engsep0 + en] == fail_inop)
			inc_mass_mi(v.Xarm[en], v.Yarm[en], v.Zarm[en], -v.engn_mass[en], "separated engine");
}

static void whole_aircraft_coefficients(flt_struct& f, const veh_struct& v)
{
	float B_ref = 0.0f, C_sum = 0.0f, S_ref = 0.0f;
	int n = 0;
	for (int en = en_wing1L; en <= en_mwing_hi; en++) {
		if (!ret_part_alive(0, en) || std::fabs(v.dihednow[en]) >= 45.0f) continue;
		float cs = std::cos(v.sweepnow[en] * con.degtorad), cd = std::cos(v.dihednow[en] * con.degtorad);
		B_ref = fltmax2(B_ref, 2.0f * (v.semilen_SEG[en] * cs * cd + v.Xarm[en]));
		C_sum += 0.5f * (v.Croot[en] + v.Ctip[en]);
		S_ref += 0.5f * (v.Croot[en] + v.Ctip[en]) * v.semilen_SEG[en] * cs;
		n++;
	}
	float C_ref = n ? C_sum / n : 0.0f;
	f.lift_path_axis = f.fnrml_aero_acf * f.cos_alph - f.faxil_aero_acf * f.sin_alph;
	f.side_path_axis = f.fside_aero_acf * f.cos_beta - f.faxil_aero_acf * f.sin_beta;
	f.drag_path_axis = f.fnrml_aero_acf * f.sin_alph + f.faxil_aero_acf * f.cos_alph + f.fside_aero_acf * f.sin_beta;
	float sq = S_ref * f.Qstatic;
	f.C_m = sq * C_ref > 0.0f ? f.M / (sq * C_ref) : 0.0f;
	f.C_n = sq * B_ref > 0.0f ? f.N / (sq * B_ref) : 0.0f;
	f.cl_overall = sq > 0.0f ? f.lift_path_axis / sq : 0.0f;
	f.cd_overall = sq > 0.0f ? f.drag_path_axis / sq : 0.0f;
	f.l_o_d = f.drag_path_axis != 0.0f ? f.lift_path_axis / f.drag_path_axis : 0.0f;
	if (msc.stab_ptch_test == 1 || msc.stab_hdng_test == 1) {
		if (msc.stab_ptch_test == 1)
			cyc << "Pitch stability derivative is: Cm =  M / (Sref * Cref * Q).\n" << f.C_m
			    << " = " << f.M << " / (" << S_ref << " * " << C_ref << " * " << f.Qstatic << ")\n";
		if (msc.stab_hdng_test == 1)
			cyc << " Yaw  stability derivative is: Cn =  N / (Sref * Bref * Q).\n" << f.C_n
			    << " = " << f.N << " / (" << S_ref << " * " << B_ref << " * " << f.Qstatic << ")\n";
		msc.stab_ptch_test = msc.stab_hdng_test = 0;
	}
}

void set_vel_flight(int i)
{
	flt_struct& f = flt[0];
	const veh_struct& v = veh[0];
	const float dt = mnw.prd_FM;
	const float g = con.g;

	for (int en = 0; en < part_max; en++) f.nrml_force_path[en] = f.axil_force_path[en] = f.tire_trq[en] = 0.0f;
	if (mnw.cyc_out && i == 0)
		cyc << "Start of step: V " << f.V_msc << " alpha " << f.alpha << " beta " << f.beta << " phi " << f.phi
		    << " the " << f.the << " psi " << f.psi << "\n";
	do_ground_effect();

	f.fside_prop_acf = f.fnrml_prop_acf = f.faxil_prop_acf = 0.0f;
	f.fside_aero_acf = f.fnrml_aero_acf = f.faxil_aero_acf = 0.0f;
	f.fside_gear_acf = f.fnrml_gear_acf = f.faxil_gear_acf = 0.0f;
	f.L = f.M = f.N = 0.0f;
	f.blown_flap_engage_rat = interp(v.blown_flap_min_engag, 0.0f, 1.0f, 1.0f, f.flap_rat, 0);
	f.lift_fan_total_power = f.pre_rot_total_power = 0.0f;

	do_engines(i);
	do_all_props();
	do_rockets_jato_puffers();
	do_electrics();
	do_lines();
	do_lifting_parts();
	do_bodies_and_drag();
	do_contact();
	do_wire_and_catapult();
	force_weapons();
	sum_mass_and_inertia(f, v);

	// Accelerations felt, then into the world, then gravity toward the planet's centre.
	const int has_mass = f.m_total > 0.0f;
	const float inv_w = has_mass ? 1.0f / (f.m_total * g) : 0.0f;
	f.g_nrml = fltlim((f.fnrml_prop_acf + f.fnrml_aero_acf + f.fnrml_gear_acf) * inv_w, -1000.0f, 1000.0f);
	f.g_axil = fltlim((f.faxil_prop_acf + f.faxil_aero_acf + f.faxil_gear_acf) * inv_w, -1000.0f, 1000.0f);
	f.g_side = fltlim((f.fside_prop_acf + f.fside_aero_acf + f.fside_gear_acf) * inv_w, -1000.0f, 1000.0f);
	any_to_wrl(f.g_side * g, f.g_nrml * g, f.g_axil * g, &f.ax, &f.ay, &f.az,
	           f.sin_psi, f.cos_psi, f.sin_the, f.cos_the, f.sin_phi, f.cos_phi);
	double ux = f.dob_x, uy = con.planet_rad + f.dob_y, uz = f.dob_z;
	double ul = std::sqrt(ux * ux + uy * uy + uz * uz);
	if (ul > 0.0) {
		f.ax -= (float)(con.lcl_g * ux / ul);
		f.ay -= (float)(con.lcl_g * uy / ul);
		f.az -= (float)(con.lcl_g * uz / ul);
	}

	if (has_mass && v.m_displaced != 0.0f) {   // buoyancy of an airship's gas
		float fb = v.m_displaced * g * f.disp_rat * con.lcl_sig;
		f.ay += fb / f.m_total;
		f.M -= fb * f.sin_the * v.m_displaced_y;
		f.L -= fb * f.sin_phi * v.m_displaced_y;
	}
	{   // weight-shift control
		float dx = v.mass_shift_dx * f.FC_roll, dz = v.mass_shift_dz * f.FC_ptch, m = v.mass_shift;
		f.N -= f.g_axil * g * dx * m;
		f.N += f.g_side * g * dz * m;
		f.L += f.g_nrml * g * dx * m;
		f.M += f.g_nrml * g * dz * m;
	}
	f.N += f.g_side * g * f.cgz_ref_to_default * f.m_total;
	f.M += f.g_nrml * g * f.cgz_ref_to_default * f.m_total;
	f.g_total = pythag(f.ax, f.ay + con.lcl_g, f.az) / g;

	// Each axis by itself: no gyroscopic or inertia cross-coupling.
	f.Pdot = f.Jzz_total > 0.0f ? f.L / f.Jzz_total * con.radtodeg : 0.0f;
	f.Qdot = f.Jxx_total > 0.0f ? f.M / f.Jxx_total * con.radtodeg : 0.0f;
	f.Rdot = f.Jyy_total > 0.0f ? f.N / f.Jyy_total * con.radtodeg : 0.0f;
	f.Pdot -= (fltlim(f.phi, -10.0f, 10.0f) * 4.0f + f.P) * mnw.damp_rat[1];
	f.Qdot -= (fltlim(f.the, -10.0f, 10.0f) * 6.0f + f.Q) * mnw.damp_rat[0];
	f.Rdot -= f.R * mnw.damp_rat[2];
	f.Pdot = fltlim(f.Pdot, -10000.0f, 10000.0f);
	f.Qdot = fltlim(f.Qdot, -10000.0f, 10000.0f);
	f.Rdot = fltlim(f.Rdot, -10000.0f, 10000.0f);

	if (stg.car_inprog) {
		f.ax = f.ay = f.az = f.Pdot = f.Qdot = f.Rdot = 0.0f;
		f.P = f.Q = f.R = 0.0f;
		f.vx = flt[1].vx; f.vy = flt[1].vy; f.vz = flt[1].vz;
	}
	do_tow_wake();

	if (f.V_msc < 5.0f && f.fnrml_gear_acf > 0.5f * f.m_total * g) {   // yaw stiction on the ground
		running_Rdot = dt * f.Rdot + (1.0f - fltlim(dt, 0.0f, 1.0f)) * running_Rdot;
		float damp_vel = fltlim(interp(2.0f, 1.0f, 4.0f, 0.0f, std::fabs(f.R), 0), 0.0f, 1.0f);
		float damp_acc = fltlim(interp(1.0f, 1.0f, 2.0f, 0.0f, std::fabs(running_Rdot), 0), 0.0f, 1.0f);
		float k = 1.0f - damp_vel * damp_acc;
		f.Rrad *= k; f.R *= k; f.Rdot *= k;
	}

	f.P += f.Pdot * dt; f.Q += f.Qdot * dt; f.R += f.Rdot * dt;
	f.vx += f.ax * dt; f.vy += f.ay * dt; f.vz += f.az * dt;
	if (mnw.totl_time < msc.crash_damp_timeout) {
		float k = fltmax2(1.0f - 5.0f * dt, 0.0f);
		f.P *= k; f.Q *= k; f.R *= k; f.vx *= k; f.vy *= k; f.vz *= k;
	}
	if (stg.chute_on) {
		float k = 1.0f - dt * stg.chute_deploy_rat * 0.1f;
		f.P *= k; f.Q *= k; f.R *= k;
	}
	f.Prad = f.P * con.degtorad; f.Qrad = f.Q * con.degtorad; f.Rrad = f.R * con.degtorad;
	whole_aircraft_coefficients(f, v);
	if (mnw.cyc_out && i == 0)
		cyc << "Totals: side " << f.fside_aero_acf + f.fside_prop_acf + f.fside_gear_acf << " normal "
		    << f.fnrml_aero_acf + f.fnrml_prop_acf + f.fnrml_gear_acf << " axial "
		    << f.faxil_aero_acf + f.faxil_prop_acf + f.faxil_gear_acf << " L " << f.L << " M " << f.M << " N " << f.N << "\n";
}

void update_with_fullsim2(int p)
{
	if (p != 0) throw std::runtime_error("I cannot do a update_with_fullsim2 with p!=0!");
	flt_struct& f = flt[0];
	const float prd_saved = mnw.prd_FM;
	// A step longer than the loop's ceiling is cut to it; a bad one does nothing.
	mnw.prd_FM = (prd_saved > 0.0f && std::isfinite(prd_saved)) ? fltmin2(prd_saved, 0.08f) * 0.5f : 0.0f;
	const float dt = mnw.prd_FM;
	for (int i = 0; i < 2; i++) {
		set_vel_flight(i);
		if (stg.car_inprog) init_quaternion(flt[1].psi, flt[1].the, flt[1].phi, f.q);
		if (!net.getting_loc_0) {
			float dq[4];
			init_quaternion(f.R * dt, f.Q * dt, f.P * dt, dq);
			mul_quat(f.q, dq, f.q);
			quat_to_euler(f.q, &f.psi, &f.the, &f.phi);
		}
		if (msc.stab_ptch_test == 2) { msc.stab_ptch_test = 1; f.the += 1.0f; init_quaternion(f.psi, f.the, f.phi, f.q); }
		if (msc.stab_hdng_test == 2) { msc.stab_hdng_test = 1; f.psi -= 1.0f; init_quaternion(f.psi, f.the, f.phi, f.q); }
		if (!net.getting_loc_0) {
			if (stg.car_inprog) {
				const flt_struct& m = flt[1];
				float dx, dy, dz;
				any_to_wrl(veh[1].jett_xyz[0] - veh[0].jett_xyz[0], veh[1].jett_xyz[1] - veh[0].jett_xyz[1],
				           veh[1].jett_xyz[2] - veh[0].jett_xyz[2], &dx, &dy, &dz,
				           m.sin_psi, m.cos_psi, m.sin_the, m.cos_the, m.sin_phi, m.cos_phi);
				f.dob_x = m.dob_x + dx; f.dob_y = m.dob_y + dy; f.dob_z = m.dob_z + dz;
			} else {   // semi-implicit: the velocity this sub-step has just made
				f.dob_x += (double)f.vx * dt;
				f.dob_y += (double)f.vy * dt;
				f.dob_z += (double)f.vz * dt;
			}
		}
		if (mnw.first_miss_cycle) {   // no flight starts under the surface
			float svx, svy, svz;
			float gy = find_local_y((float)f.dob_x, (float)f.dob_z, &svx, &svy, &svz, &f.i, &f.j, 1);
			if (f.dob_y < gy + veh[0].h_eqlbm) f.dob_y = gy + veh[0].h_eqlbm;
		}
		xdob_latlonel_with_xyz(f.dob_lat, f.dob_lon, f.dob_ele, f.dob_x, f.dob_y, f.dob_z);
		update_derived_flt(0);
		mnw.cyc_out = 0;
	}
	mnw.prd_FM = prd_saved;
	const float pass_dt = 2.0f * dt;
	mnw.dis_travelled += pass_dt * f.V_msc;
	integ_weapons(0);
	f.stall_warning = f.v_ind_kts > veh[0].Vs_kts * 0.25f && f.alpha > veh[0].stall_warn_aoa;
	do_line_ends();
	do_gpws();
}
