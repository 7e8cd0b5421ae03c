// Engines: each class's handful of rules turns controls and air into fuel feed,
// burning, spool speed, shaft torque or thrust, fuel flow, temperatures, oil and
// electrical load. Propeller engines only make a torque; the shafts turn it into speed.
#include "flight/HL_FLIGHT.h"
#include "core/HL_MAIN.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "core/failures.h"
#include "world/HL_WORLD.h"
#include <cmath>

namespace {

int is_prop_engine(int t) { return t == 0 || t == 1 || t == 2 || t == 8 || t == 3; }
int is_jet(int t) { return t == 4 || t == 5; }
float signed_pow(float x, float e) { return x < 0.0f ? -std::pow(-x, e) : std::pow(x, e); }
void lag(float& v, float target, float k) { k = fltlim(k, 0.0f, 1.0f); v = k * target + (1.0f - k) * v; }
int starter_running(int en) { return stg.start_time[en] > mnw.totl_time; }

// The tank that feeds: the fullest drop tank, else the selector's choice. -1: none.
int feed_tank()
{
	const flt_struct& f = flt[0];
	const int sel = stg.fuel_tank_sel;
	int t = -1;
	if (sel >= 1 && sel <= 3) t = sel - 1;
	if (sel == 4) {
		t = 0;
		for (int k = 1; k < tank_max; k++) if (f.m_fuel[k] > f.m_fuel[t]) t = k;
	}
	if (t >= 0 && !(f.m_fuel[t] > 0.0f)) t = -1;
	return t;
}

}  // namespace

float tot_volt_avail()
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	if (f.fail_stat[rel_esys] == fail_inop) return 0.0f;
	float s = 0.0f;
	for (int en = 0; en < intmax2(v.num_engines, 1) && en < engn_max; en++) {
		if (stg.battery) s += f.ENGN_bat_volt[en];
		const int t = v.engn_type[en];
		if ((t == 2 || t == 8 || is_jet(t)) && stg.generator[en] && en < v.num_engines) s += f.ENGN_N1_[en] / 15.0f;
	}
	return fltlim(s, 0.0f, 1.0f);
}

float gen_avail(int en)
{
	const flt_struct& f = flt[0];
	if (!stg.generator[en] || f.fail_stat[rel_genera0 + en] == fail_inop) return 0.0f;
	const int t = veh[0].engn_type[en];
	if (t == 6 || t == 7) return 1.0f;
	return fltlim(f.ENGN_N1_[en] * 0.05f, 0.0f, 1.0f);
}

int eng_has_fadec(int p, int en)
{
	const veh_struct& v = veh[p];
	int has = v.has_collective ? 1 : 0;
	if (v.has_prerotate) has = 0;
	if (v.has_FADECswitch) has = 1;
	if (!ret_part_alive(p, en)) has = 0;
	const int t = v.engn_type[en & 7];
	if (!is_prop_engine(t) && t != 7) has = 0;
	return has;
}

int fadec_is_running(int p, int en) { return stg.fadec_on[en & 7] && flt[p].fail_stat[rel_fadec_0 + (en & 7)] != fail_inop; }

void set_thro(int en, float thro)
{
	if (en < 0 || en >= engn_max) return;
	const veh_struct& v = veh[0];
	flt[0].CONT_thro_ref[en] = fltlim(thro, 0.0f, flt[0].CONT_prop_mode[en] == 3 ? v.throt_max_REV : v.throt_max_FWD);
}

void set_prop(int en, float rsc)
{
	if (en < 0 || en >= engn_max) return;
	const veh_struct& v = veh[0];
	flt[0].CONT_prop_rsc[en] = fltlim(rsc, fltmin2(v.RSC_mingreen_PROP, v.RSC_redline_PROP), fltmax2(v.RSC_mingreen_PROP, v.RSC_redline_PROP));
}

void set_mixt(int en, float mixt)
{
	if (en < 0 || en >= engn_max) return;
	flt[0].CONT_mixt[en] = fltlim(mixt, 0.0f, 1.0f);
}

void set_ptch(int en, float ptch)
{
	if (en < 0 || en >= engn_max) return;
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	float lo, hi;
	switch (f.CONT_prop_mode[en]) {
	case 0: lo = hi = v.feathered_pitch; break;
	case 2: lo = hi = 0.0f; break;
	case 3: lo = -90.0f; hi = v.min_pitch[en]; break;
	default: lo = fltmin2(v.min_pitch[en], v.max_pitch[en]); hi = fltmax2(v.min_pitch[en], v.max_pitch[en]); break;
	}
	float r = ptch;
	const int t = v.prop_type[en];
	if (t == 1 || t == 4 || t == 7) {   // a governed propeller turns its blades at a limited rate
		const float want = fltlim(ptch, lo, hi), step = 45.0f * mnw.prd_FM, now = f.POINT_pitch_deg_ref[en];
		r = now + fltlim(want - now, -step, step);
	}
	f.POINT_pitch_deg_ref[en] = fltlim(r, lo, hi);
}

float set_thro_prop(float flt_dat, int en, int flt_to_prp)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const float thro1 = 0.0f, thro4 = 1.0f;
	float thro2 = 0.2f, thro3 = 0.3f;
	if (!v.beta_prop_EQ) thro3 = 0.25f;
	if (!v.rev_thrust_EQ) thro2 = 0.0f;
	if (flt_to_prp) {
		if (flt_dat >= thro3) { f.CONT_prop_mode[en] = 1; f.CONT_thro_ref[en] = interp(thro3, 0.0f, thro4, v.throt_max_FWD, flt_dat, 0); }
		else if (flt_dat >= thro2) { f.CONT_prop_mode[en] = 2; f.CONT_thro_ref[en] = 0.0f; }
		else if (v.rev_thrust_EQ) { f.CONT_prop_mode[en] = 3; f.CONT_thro_ref[en] = interp(thro2, 0.0f, thro1, v.throt_max_REV, flt_dat, 0); }
	}
	switch (f.CONT_prop_mode[en]) {
	case 2: return interp(0.0f, thro2, v.throt_max_REV, thro3, f.CONT_thro_ref[en], 0);
	case 3: return interp(0.0f, thro2, v.throt_max_REV, thro1, f.CONT_thro_ref[en], 0);
	default: return interp(0.0f, thro3, v.throt_max_FWD, thro4, f.CONT_thro_ref[en], 0);
	}
}

void auto_set_thro_prop(float lever, float* thro, float* prop)
{
	const veh_struct& v = veh[0];
	const float idle = v.auto_omega_idle, open = v.auto_omega_open, fire = v.auto_omega_fire;
	const float open_at = (open - idle) / fltmax2(fire - idle, 1.0f);
	*thro = fltlim(interp(0.0f, 0.0f, open_at, 1.0f, lever, 1), 0.0f, 1.0f);
	const float speed = lever <= open_at ? interp(0.0f, idle, open_at, open, lever, 0) : interp(open_at, open, 1.0f, fire, lever, 0);
	*prop = fltlim(interp(v.RSC_mingreen_ENGN, 0.0f, v.RSC_redline_PROP, 1.0f, speed, 1), 0.0f, 1.0f);
}

float fuelburn_kgpersec(float pow_thr, int en)
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	if (pow_thr < 0.0f) pow_thr = f.CONT_prop_mode[en] == 3 ? -pow_thr : 0.0f;
	const int t = v.engn_type[en];
	const float sig = fltmax2(f.ENGN_sigma[en], 0.0f), br = f.ENGN_burning_rat[en];
	float idle = 0.0f, mod = 1.0f;
	if (t == 0 || t == 1) idle = v.power_max * v.SFC[en] * 0.1f * sig * br;
	else if (t == 2) { idle = v.power_max * v.SFC[en] * 0.2f * sig * br; mod = std::sqrt(sig); }
	else if (t == 8) { idle = v.power_max * v.SFC[en] * 0.18f * sig * br; mod = std::sqrt(sig); }
	else if (is_jet(t)) { idle = v.thrust_max * v.SFC[en] * 0.2f * sig * br; mod = std::sqrt(sig); }
	float r = (pow_thr * v.SFC[en] - f.CONT_thro_use[en] * idle) * mod + idle;
	if (f.ENGN_burner_on[en] && v.thrust_max + v.burner_inc > 0.0f)
		r *= (v.thrust_max + 2.0f * v.burner_inc) / (v.thrust_max + v.burner_inc);   // burner thrust costs twice the fuel
	return r;
}

float get_rocket_thrust(int en)
{
	const veh_struct& v = veh[0];
	const flt_struct& f = flt[0];
	const float rho_opt = find_standard_rho(0, v.rock_h_opt), rho = con.lcl_r_met;
	const float t = rho > rho_opt ? interp(1.225f, v.rock_max_sl, rho_opt, v.rock_max_opt, rho, 0)
	                              : interp(0.0f, v.rock_max_vac, rho_opt, v.rock_max_opt, rho, 0);
	return t * f.CONT_thro_use[en] * f.ENGN_burning_fuel[en];
}

void init_engine_specs(int en, int burn_fuel)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const float dt = mnw.prd_FM;
	const int t = v.engn_type[en];
	const float prop_rpm_rat = f.ENGN_tacrad[en] / fltmax2(v.RSC_redline_ENGN, 1.0f);

	// 1. Fuel feed.
	if (starter_running(en) && f.CONT_ignition[en] == 0) f.CONT_ignition[en] = 3;
	int got_milk = t == 3;
	const int pump_dead = f.fail_stat[rel_fuepmp0 + en] == fail_inop && !stg.fuel_pump[en];
	if (t != 3 && f.CONT_mixt[en] > 0.025f && !pump_dead) {
		const int tank = feed_tank();
		if (tank >= 0) {
			got_milk = 1;
			if (burn_fuel && mnw.puff1) f.m_fuel[tank] = fltmax2(f.m_fuel[tank] - f.ENGN_FF_kgs[en], 0.0f);   // one second's flow
		}
	}
	// 2. Burning.
	const int dead = f.fail_stat[rel_engfai0 + en] == fail_inop || f.fail_stat[rel_engsep0 + en] == fail_inop;
	if (t == 3 || t == 6 || t == 7) f.ENGN_burning_fuel[en] = got_milk;
	else if (t == 0 || t == 1)
		f.ENGN_burning_fuel[en] = got_milk && f.CONT_ignition[en] != 0 && f.ENGN_carb_ice[en] <= 0.5f &&
		                          f.ENGN_tacrad[en] >= v.RSC_idlespeed_ENGN * 0.25f;
	else {   // a turbine stays lit without its igniter, and relights only with it
		if (stg.igniter[en]) f.ENGN_burning_fuel[en] = 1;
		if (!got_milk) f.ENGN_burning_fuel[en] = 0;
		const float n = (t == 2 || t == 8) ? f.ENGN_N1_[en] : f.ENGN_N2_[en];
		if (n < 1.0f && !stg.igniter[en]) f.ENGN_burning_fuel[en] = 0;
	}
	if (dead) f.ENGN_burning_fuel[en] = 0;
	if (f.ENGN_burning_fuel[en]) {
		const float intro = is_prop_engine(t) ? v.fuel_intro_time_prop : v.fuel_intro_time_jet;
		f.ENGN_burning_rat[en] = fltlim(f.ENGN_burning_rat[en] + dt / fltmax2(intro, 0.01f), 0.0f, 1.0f);
	} else f.ENGN_burning_rat[en] = 0.0f;

	// 3. The engine's density ratio, with boost and ram.
	const float sig = con.lcl_sig;
	auto fade = [sig](float b) { return sig < 0.1f ? b * fltlim((sig - 0.1f) * 10.0f + 1.0f, 0.0f, 1.0f) : b; };
	float es = 1.0f;
	if (is_jet(t)) {
		es = sig + fade(fltlim(1.0f - sig, 0.0f, v.max_boost_pas_jet / 101325.0f));
		if (t == 5) es -= sig * sig * f.Mach * 0.5f;
		else es += fltlim(f.Mach, 0.0f, 1.0f) * 0.2f * sig;
		if (f.Mach > 1.0f) es *= 2.4f * f.Mach * f.Mach / (0.4f * f.Mach * f.Mach + 2.0f);
		const float above = f.Mach - v.max_mach_eff;
		if (above > 0.0f) es /= 5.0f * above + 1.0f;
	} else if (t == 0 || t == 1 || t == 2 || t == 8) {
		const float ram = f.Qstatic * 0.75f / 101325.0f;
		es = sig + fade(fltlim(1.0f - sig, ram, v.max_boost_pas_prop / 101325.0f + ram));
		if (t == 0) es *= (1.0f - 0.1f * f.CONT_heat[en]) * (1.0f - f.ENGN_carb_ice[en]);
		if ((t == 0 || t == 1) && (f.CONT_ignition[en] == 1 || f.CONT_ignition[en] == 2)) es *= 0.85f;
		es *= fltlim(1.0f - f.inlet_ice, 0.0f, 1.0f);
		if (t == 0 || t == 1) {
			const float running = v.MP_max * (0.7f * f.CONT_thro_use[en] + 0.3f) * es * ((con.sl_T_cel + 273.15f) / 288.15f) *
			                      (1.05f - 0.1f * prop_rpm_rat);
			const float ambient = con.lcl_P_pas * con.pasto_hg;
			const float run_rat = fltlim(v.RSC_idlespeed_ENGN > 0.0f ? f.ENGN_tacrad[en] / v.RSC_idlespeed_ENGN : 0.0f, 0.0f, 1.0f);
			lag(f.ENGN_MPR[en], interp(0.0f, ambient, 1.0f, running, run_rat, 0), dt);
		}
	}
	f.ENGN_sigma[en] = fltmax2(es, 0.0f);

	// 4. Fuel ratios: the mixture for pistons, the hot start for turbines.
	float flow = 0.0f, powr = 0.0f, temp = 0.0f;
	if (f.ENGN_burning_fuel[en]) {
		if (t == 3 || t == 6 || t == 7) flow = powr = temp = 1.0f;
		else if (t == 0 || t == 1) {
			const float mix_max_powr = 0.2f * prop_rpm_rat + f.ENGN_sigma[en] - 0.4f;
			if (v.drive_by_wire_EQ) f.CONT_mixt[en] = mix_max_powr;
			const float d = f.CONT_mixt[en] - mix_max_powr;
			const float off_powr = d > 0.0f ? 0.1f * d : 2.0f * d * d, off_temp = 0.4f * std::fabs(d);
			flow = fltlim(1.0f + d, 0.0f, 2.0f);
			powr = fltlim(1.0f - off_powr, 0.0f, 2.0f);
			temp = fltlim((0.85f - off_temp) * std::sqrt(0.5f * f.CONT_thro_use[en] + 0.5f), 0.0f, 2.0f);
		} else {
			flow = powr = 1.0f;
			const float n = t == 2 ? f.ENGN_N1_[en] : f.ENGN_N2_[en];
			temp = fltlim((t == 8 ? 8.0f : 10.0f) / fltmax2(n, 0.001f), 0.0f, 2.0f);   // a hot start
			const float max_from_trq = fltlim(1.0f - temp, 0.0f, 1.0f);
			float from_trq = 0.36f * f.CONT_thro_use[en] + 0.12f - 0.15f * sqr(n / 100.0f);
			if (f.CONT_thro_use[en] > 0.9f) from_trq += 3.4f * (f.CONT_thro_use[en] - 0.9f);
			temp += fltlim(from_trq, 0.0f, max_from_trq);
		}
	}
	// 5. Temperatures.
	float term_CHT = v.max_EGT > 0.0f ? f.ENGN_EGT[en] / v.max_EGT * v.max_CHT : 0.0f;
	if (is_prop_engine(t)) term_CHT -= f.AV_sig_kts + f.POINT_DVinc[en] * con.msctokts - v.V_ref_ms * con.msctokts;   // airflow cools
	term_CHT += con.sl_T_cel - 15.0f - (f.CONT_cowl[en] - 0.5f) * 50.0f;
	const float term_OIL = v.max_CHT > 0.0f ? v.max_OILT * f.ENGN_CHT[en] / (v.max_CHT * fltmax2(sig, 0.01f)) : 0.0f;
	const float Tf = con.lcl_T_cel * 1.8f + 32.0f;
	lag(f.ENGN_EGT[en], temp * v.max_EGT + Tf - 59.0f, dt);
	lag(f.ENGN_ITT[en], temp * v.max_ITT + con.lcl_T_cel - 15.0f, dt);
	lag(f.ENGN_CHT[en], term_CHT + Tf - 59.0f, 0.01f * dt);
	lag(f.ENGN_OILT[en], term_OIL + Tf - 59.0f, 0.02f * dt);
	flow *= f.ENGN_burning_rat[en];
	powr *= f.ENGN_burning_rat[en] * f.ENGN_sigma[en];

	// 6. Effective throttle and the starter.
	const int idle_sel = intlim(stg.idle_speed[en], 0, 1);
	float idle = 0.0f;
	if (t == 0 || t == 1) idle = v.idle_rat[idle_sel] * 0.23f;
	else if (t == 8) idle = v.idle_rat[idle_sel] * 0.19f;
	else if (t == 2) idle = v.idle_rat[idle_sel] * 0.22f;
	else if (is_jet(t)) idle = v.idle_rat[idle_sel] * 0.27f;
	float eff = f.CONT_thro_use[en] * (1.0f - idle) + idle;
	if (is_prop_engine(t) && v.drive_by_wire_EQ && v.RSC_redline_ENGN > 0.0f) {   // a governor on the throttle
		if (f.ENGN_tacrad[en] < v.RSC_idlespeed_ENGN) eff += (v.RSC_idlespeed_ENGN - f.ENGN_tacrad[en]) / v.RSC_redline_ENGN * 5.0f;
		if (f.ENGN_tacrad[en] > v.RSC_redline_ENGN) eff += (v.RSC_redline_ENGN - f.ENGN_tacrad[en]) / v.RSC_redline_ENGN * 5.0f;
	}
	const float star = starter_running(en) && tot_volt_avail() > 0.1f ? tot_volt_avail() * f.ENGN_bat_volt[en] * v.starter_rat : 0.0f;

	// 7. Spools and torque.
	if (t == 6 || t == 7) {
		f.ENGN_N2_[en] = f.ENGN_N1_[en] = 100.0f * powr * std::sqrt(fltmax2(f.CONT_thro_use[en], 0.0f));
	} else if (is_jet(t) || t == 2) {
		float& n = is_jet(t) ? f.ENGN_N2_[en] : f.ENGN_N1_[en];
		const float fadec_n = 100.0f * std::pow(fltmax2(eff * f.ENGN_burning_rat[en], 0.0f), 0.33f);
		const float q = f.ENGN_sigma[en] * sqr(n / 100.0f);
		const float gliding_k = t == 5 ? 0.15f : t == 4 ? 0.05f : 0.25f;
		const float gliding = fltmax2((f.AV_msc * gliding_k - f.ENGN_N1_[en]) * 0.015f * f.ENGN_sigma[en], 0.0f);   // windmilling
		const float bearing = fltlim((f.ENGN_oil_lube_rat[en] - 1.0f) * -1.995f + 0.005f, 0.005f, 2.0f) * fltlim(n, -1.0f, 1.0f);
		const float driv = fltlim((10.0f * eff + fadec_n - n) / 10.0f, 0.0f, 2.0f) * (f.ENGN_burning_fuel[en] ? 1.0f : 0.0f);
		n += (q * driv + gliding - q - bearing + star) / fltmax2(v.spool_time_jet, 0.01f) * dt * 75.0f;
		n = fltlim(n, 0.0f, 150.0f);
		if (is_jet(t)) f.ENGN_N1_[en] = 100.0f * std::pow(n / 100.0f, 3.0f);
		else {
			f.ENGN_N2_[en] = 100.0f * prop_rpm_rat;
			const float r = fltlim(100.0f * prop_rpm_rat, -1.0f, 1.0f);
			f.ENGN_TRQ_nm[en] = (1.51f * std::pow(n / 100.0f, 3.0f) - 0.5f * std::pow(prop_rpm_rat, 3.0f) - 0.01f * r) * v.trq_max_eng * f.ENGN_sigma[en];
		}
	} else {   // pistons, fixed-shaft turbines, electric motors
		const float rpm_driv = fltmax2(1.0f - std::fabs(prop_rpm_rat - 1.0f), 0.0f);
		const float r = fltlim(100.0f * prop_rpm_rat, -1.0f, 1.0f);
		float drive, drag;
		if (t == 0 || t == 1) {
			drive = 1.3f * std::pow(rpm_driv, 0.2f) * eff * powr;
			drag = 0.15f * sqr(prop_rpm_rat) * f.ENGN_sigma[en] + 0.15f * r;
			const float pulse_amp = v.RSC_idlespeed_ENGN > 0.0f ? fltlim(interp(0.0f, 0.2f, v.RSC_idlespeed_ENGN, 0.0f, f.ENGN_tacrad[en], 0), 0.0f, 0.2f) : 0.1f;
			drag += std::sin(f.tire_rotation[en] * con.degtorad * 2.0f * con.pi) * pulse_amp;   // compression strokes
		} else if (t == 8) {
			drive = 1.25f * std::pow(rpm_driv, 0.2f) * eff * powr;
			drag = 0.24f * sqr(prop_rpm_rat) * f.ENGN_sigma[en] + 0.01f * r;
		} else {
			drive = powr * eff * 1.01f;
			drag = 0.01f * r;
		}
		drag += fltlim(100.0f * prop_rpm_rat, -10.0f, 10.0f) * (1.0f - f.ENGN_oil_lube_rat[en]);   // without oil it seizes
		f.ENGN_N1_[en] = f.ENGN_N2_[en] = fltmax2(100.0f * prop_rpm_rat, 0.0f);
		f.ENGN_TRQ_nm[en] = (drive - drag + star) * v.trq_max_eng;
	}

	// 8. Fuel flow.
	if (!net.getting_ff) {
		float target = 0.0f;
		if (got_milk) {
			if (t == 7) target = fuelburn_kgpersec(get_rocket_thrust(en), en) * flow * v.num_blades[en];
			else if (is_prop_engine(t)) target = fuelburn_kgpersec(f.ENGN_power[en], en) * flow;
			else target = fuelburn_kgpersec(f.POINT_thrust[en], en) * flow;
		}
		lag(f.ENGN_FF_kgs[en], fltmax2(target, 0.0f), 5.0f * dt);
	}
	// 9. Oil.
	const float oil = is_prop_engine(t) ? prop_rpm_rat : is_jet(t) ? f.ENGN_N2_[en] / 100.0f : 1.0f;
	const int pump_failed = f.fail_stat[rel_oilpmp0 + en] == fail_inop;
	lag(f.ENGN_OILP[en], pump_failed ? 0.0f : v.max_OILP * signed_pow(oil, 0.5f) * 0.5f, dt);
	f.ENGN_oil_lube_rat[en] = pump_failed ? fltlim(f.ENGN_oil_lube_rat[en] - dt / 240.0f, 0.0f, 1.0f) : 1.0f;
	// 10. Electrical load.
	f.ENGN_bat_amp[en] = 0.0f;
	if (tot_volt_avail() > 0.1f && f.ENGN_bat_volt[en] > 0.0f) {
		float load = 0.001f;
		if (stg.avionics) load += 0.001f;
		if (stg.ice_all) load += 0.02f;
		if (stg.ice_pitot_heat) load += 0.02f;
		for (int s : {stg.ice_auto_ignite, stg.ice_inlet_heat, stg.ice_prop_heat, stg.ice_surf_heat, stg.ice_window_heat})
			if (s) load += 0.05f;
		if (stg.inverter[0]) load += 0.005f;
		if (f.nav_lite) load += 0.005f;
		if (f.bea_lite) load += 0.005f;
		for (int s : {f.str_lite, f.lan_lite, f.tax_lite}) if (s) load += 0.05f;
		if (starter_running(en)) load += 0.75f;
		f.ENGN_bat_amp[en] -= load / fltmax2(v.battery_rat, 0.01f);
	}
}

// The thrust of a jet, at its point, along its cants.
void do_a_jet(int en)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const float dt = mnw.prd_FM;
	const float n_use = fltlim(f.ENGN_N1_[en], 0.0f, 100.0f * v.throt_max_FWD);
	const float full = v.thrust_max * f.ENGN_sigma[en];
	const float idle_thrust = f.Qstatic * (-v.face_jet * 0.3f);
	const float burn = f.ENGN_burner_on[en] ? v.burner_inc * f.ENGN_sigma[en] : 0.0f;
	const float total = interp(0.0f, idle_thrust, 1.0f, full, std::pow(n_use / 100.0f, 3.0f), 0);
	float lift_fan_rat = 0.0f;
	for (int w = 0; w < v.num_thrustpoints && w < engn_max; w++)
		if (v.prop_type[w] == 6) lift_fan_rat += v.lift_fan_rat * sqr(std::sin(f.vert_disc_cant_vector[w] * con.degtorad));
	const float blow = v.blown_flap_add_speed > 0.0f && f.blown_flap_engage_rat > 0.0f ? v.blown_flap_throt_red * f.blown_flap_engage_rat : 0.0f;
	const float pre_rot = stg.pre_rotating ? 0.75f : 0.0f;
	f.POINT_thrust[en] = (1.0f - lift_fan_rat) * total * (1.0f - blow) * (1.0f - pre_rot) + burn;
	const float rho = fltmax2(con.lcl_r_met, 0.001f);
	const float face = fltmax2(v.face_jet, 1e-4f);
	const float jet_speed = signed_pow(total / (face * rho), 0.5f);
	f.lift_fan_total_power += total * lift_fan_rat * 0.75f * jet_speed;
	f.pre_rot_total_power += total * pre_rot * 0.75f * jet_speed;
	f.ENGN_power[en] = f.POINT_thrust[en] * f.POINT_DVinc[en];
	f.ENGN_EPR[en] = f.POINT_thrust[en] / face / fltmax2(con.lcl_P_pas, 1.0f) + 1.0f;
	if (f.CONT_prop_mode[en] == 3) f.POINT_thrust[en] *= -0.5f;   // reverse
	float vv = f.V_msc + f.POINT_DVinc[en];
	if (std::fabs(vv) < 1.0f) vv = vv < 0.0f ? -1.0f : 1.0f;
	lag(f.POINT_DVinc[en], f.POINT_thrust[en] / (face * rho * std::fabs(vv)), dt);
	apply_point_thrust(en, f.POINT_thrust[en]);
}

// Thrust along the point's axis (forward is the aircraft's -z), turned by its cants.
void apply_point_thrust(int en, float thrust)
{
	flt_struct& f = flt[0];
	const float vc = f.vert_disc_cant_cyclic[en] * con.degtorad, sc = f.side_disc_cant_cyclic[en] * con.degtorad;
	const float fx = thrust * std::cos(vc) * std::sin(sc), fy = thrust * std::sin(vc), fz = -thrust * std::cos(vc) * std::cos(sc);
	f.force_XYZ[en][0][0] = fx; f.force_XYZ[en][0][1] = fy; f.force_XYZ[en][0][2] = fz;
	const float x = f.POINT_XYZ[en][0], y = f.POINT_XYZ[en][1], z = f.POINT_XYZ[en][2];   // placed by the deflection step
	addFsprop(0, fx, y, z);
	addFnprop(0, fy, x, z);
	addFaprop(0, fz, y, x);
}

void do_engines(int i)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	for (int en = 0; en < v.num_engines && en < engn_max; en++) {
		init_engine_specs(en, i == 0);
		if (is_jet(v.engn_type[en])) do_a_jet(en);
		if (v.engn_type[en] == 6) {
			f.POINT_thrust[en] = get_rocket_thrust(en);
			float flow = f.ENGN_FF_kgs[en];
			if (std::fabs(flow) < 0.01f) flow = flow < 0.0f ? -0.01f : 0.01f;
			f.POINT_DVinc[en] = f.POINT_thrust[en] / flow;   // the exhaust's speed
			f.ENGN_power[en] = f.POINT_thrust[en] * f.POINT_DVinc[en];
			apply_point_thrust(en, f.POINT_thrust[en]);
		}
	}
}

void do_rockets_jato_puffers()
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	if (f.rocket_timeout > mnw.totl_time) {
		switch (f.rocket_mode) {
		case 380: addFaprop(0, v.puff_xyz[2], 0, 0); break;
		case 381: addFaprop(0, -v.puff_xyz[2], 0, 0); break;
		case 382: addFsprop(0, v.puff_xyz[0], 0, 0); break;
		case 383: addFsprop(0, -v.puff_xyz[0], 0, 0); break;
		case 384: addFnprop(0, v.puff_xyz[1], 0, 0); break;
		case 385: addFnprop(0, -v.puff_xyz[1], 0, 0); break;
		default: break;
		}
	}
	if (stg.jato_on) {
		const float th = v.jato_theta * con.degtorad;
		addFaprop(0, -v.jato_thrust * std::cos(th), 0.0f, v.jato_Y);
		addFnprop(0, v.jato_thrust * std::sin(th), 0.0f, v.jato_Z);
		f.jato_left -= mnw.prd_FM;
		if (f.jato_left < 0.0f) stg.jato_on = 0;
	}
	if (stg.puffers_on && (v.puff_LMN[0] > 0.0f || v.puff_LMN[1] > 0.0f || v.puff_LMN[2] > 0.0f)) {
		f.L += v.puff_LMN[0] * f.FC_roll;
		f.M += v.puff_LMN[1] * f.FC_ptch;
		f.N += v.puff_LMN[2] * f.FC_hdng;
	}
}

void do_electrics()
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const int ne = intlim(v.num_engines, 0, engn_max);
	if (ne == 0) { f.ENGN_bat_volt[0] = 1.0f; return; }
	float needed = 0.0f, avail = 0.0f;
	for (int en = 0; en < ne; en++) { needed += -f.ENGN_bat_amp[en] + 4.0f * (1.0f - f.ENGN_bat_volt[en]); avail += gen_avail(en); }
	const float load = fltlim(needed / fltmax2(avail, 0.01f), 0.0f, 1.0f);
	for (int en = 0; en < ne; en++) {
		f.ENGN_gen_amp[en] = gen_avail(en) * load;
		f.ENGN_bat_amp[en] += avail * load / ne;
		f.ENGN_bat_volt[en] = fltlim(f.ENGN_bat_volt[en] + f.ENGN_bat_amp[en] * mnw.prd_FM / 180.0f, 0.0f, 1.0f);
	}
}

// Fuel dump and transfer, and the total, once a pass.
void update_fuel_system()
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const float dt = mnw.prd_FM;
	const int nt = intlim(v.num_tanks, 0, tank_max);
	if (stg.dumping_fuel && nt > 0)
		for (int t = 0; t < tank_max; t++) f.m_fuel[t] -= v.m_fuel_tot / nt * dt / 300.0f;   // a full load in five minutes
	for (int t = 0; t < tank_max; t++) f.m_fuel[t] = fltlim(f.m_fuel[t], 0.0f, fltmax2(v.m_fuel_tot * v.tank_rat[t], 0.0f));
	const int to = stg.fuel_tank_xfr - 1;
	if (to >= 0 && to < nt && f.m_fuel[to] < v.m_fuel_tot * v.tank_rat[to] && tot_volt_avail() > 0.1f) {
		int others = 0;
		for (int t = 0; t < nt; t++) others += t != to && f.m_fuel[t] > 0.0f;
		if (others) {
			const float amount = v.m_fuel_tot * 0.001f * dt;
			f.m_fuel[to] += amount;
			for (int t = 0; t < nt; t++) if (t != to && f.m_fuel[t] > 0.0f) f.m_fuel[t] = fltmax2(f.m_fuel[t] - amount / others, 0.0f);
		}
	}
	f.m_fuel_total = 0.0f;
	for (int t = 0; t < nt; t++) f.m_fuel_total += f.m_fuel[t];
}
