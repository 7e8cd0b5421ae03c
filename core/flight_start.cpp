// The switches and engine state of a flight start, running or cold and dark. The rest
// of the flight start (places, radios, logs) comes with its step.
#include "core/HL_CORE.h"
#include "core/HL_MATH_FUN.h"
#include "core/HL_TYPES.h"
#include "flight/HL_FLIGHT.h"
#include <cmath>

void set_engines_for_start(int start_running, int on_ground)
{
	const veh_struct& v = veh[0];
	flt_struct& f = flt[0];
	const int run = start_running != 0;
	stg.ecam_warning = 0;
	stg.auto_brake_lvl = stg.feather_mode = 1;
	stg.yaw_damper_on = stg.HUD_on = run;
	stg.art_stab_on = 1;
	stg.jato_on = stg.arrest_gear = stg.chute_on = stg.prop_sync_on = stg.pre_rotating = stg.pre_rotate_level = 0;
	stg.ice_all = stg.ice_pitot_heat = stg.ice_auto_ignite = stg.ice_inert_sep = stg.ice_inlet_heat = 0;
	stg.ice_prop_heat = stg.ice_surf_heat = stg.ice_surf_boot = stg.ice_window_heat = 0;
	stg.fuel_tank_sel = 4;
	stg.fuel_tank_xfr = 0;
	stg.puffers_on = 1;
	stg.dumping_fuel = 0;
	stg.cabin_vvi_set_fpm = 500.0f;
	stg.cabin_vvi_act_fpm = 0.0f;
	stg.cabin_alt_set_ft = stg.cabin_alt_act_ft = 2000.0f;
	stg.bleed_air_on = 1;
	stg.ah_bar = 0;
	stg.HSI_is_arc = 1;
	stg.gun_armed = stg.roc_armed = stg.mis_armed = stg.bom_armed = 0;
	stg.master_warning_working = stg.master_caution_working = stg.master_accept__working = 1;
	stg.tran_mode = run;
	stg.inverter[0] = stg.inverter[1] = run || !stg.inverter_EQ;
	stg.battery = run || !stg.battery_EQ;
	stg.avionics = run || !stg.avionics_EQ;
	stg.clutch_trq_engag = (run || !v.prop_clutch_EQ[0] || !v.has_clutchswitch) ? 1.0f : 0.0f;
	const float thro = f.V_msc > 1.0f ? 0.75f : 0.0f;
	for (int en = 0; en < engn_max; en++) {
		stg.igniter[en] = run || !v.has_igniter;
		stg.idle_speed[en] = 1;
		stg.fadec_on[en] = eng_has_fadec(0, en);
		stg.generator[en] = run || !stg.generator_EQ;
		stg.fuel_pump[en] = run || !stg.fuelpump_EQ;
		stg.clutch_rat[en] = stg.clutch_trq_engag > 0.5f ? 1.0f : 0.0f;
		f.CONT_thro_ref[en] = f.CONT_thro_use[en] = thro;
		f.CONT_prop_rsc[en] = v.RSC_redline_PROP;
		f.CONT_mixt[en] = (run || !v.has_mixture) ? 1.0f : 0.0f;
		f.CONT_ignition[en] = run ? 3 : 0;
		f.CONT_prop_mode[en] = 1;
		f.CONT_cowl[en] = 0.5f;
		f.ENGN_burning_fuel[en] = run;
		f.ENGN_burning_rat[en] = run ? 1.0f : 0.0f;
		f.ENGN_OILQ[en] = 1.0f;
		f.ENGN_OILT[en] = run ? 0.5f * v.max_OILT : 0.0f;
		f.ENGN_OILP[en] = run ? 0.5f * v.max_OILP : 0.0f;
		f.ENGN_CHT[en] = run ? 0.5f * v.max_CHT : 0.0f;
		f.ENGN_bat_volt[en] = f.ENGN_sigma[en] = f.ENGN_oil_lube_rat[en] = 1.0f;
		f.ENGN_N1_[en] = f.ENGN_N2_[en] = run * (50.0f * thro + 50.0f);
		const float s = std::sqrt(thro);
		f.ENGN_tacrad[en] = run * interp(0.0f, v.RSC_idlespeed_ENGN, 1.0f, v.RSC_redline_ENGN, s, 0);
		f.POINT_tac_rad[en] = run * interp(0.0f, v.RSC_idlespeed_PROP, 1.0f, v.RSC_redline_PROP, s, 0);
		if (run && v.props_linked) {
			const float g0 = v.prop_gear_rat[0] != 0.0f ? v.prop_gear_rat[0] : 1.0f;
			const float ge = v.prop_gear_rat[en] != 0.0f ? v.prop_gear_rat[en] : 1.0f;
			f.ENGN_tacrad[en] = v.RSC_redline_ENGN;
			f.POINT_tac_rad[en] = v.RSC_redline_PROP * g0 / ge;
		}
		f.POINT_pitch_deg_ref[en] = on_ground ? v.min_pitch[en] : 0.5f * (v.min_pitch[en] + v.max_pitch[en]);
	}
	f.jato_left = v.jato_dur;
}
