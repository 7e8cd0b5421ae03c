// Physical constants, unit factors, the planet's values and the air at the aircraft.
// Set once at start by init_con; the lcl_ values are rewritten by the atmosphere.
#pragma once

struct con_struct {
	// Planet values (Earth or Mars).
	float planet_mu, planet_rad, planet_mu_air, planet_rho_water;
	float sl_T_cel, sl_P_pas, sl_r_met;
	float planet_deg_mtrs;

	// The air at the aircraft.
	float lcl_T_cel, lcl_T_cel_total, lcl_P_pas, lcl_r_met, lcl_sig, lcl_a, lcl_g;

	// Fixed constants; each conversion is stored with its reciprocal.
	float pi, pim2, pid2;
	float R, c, g;
	float lb_per_gallon_gas;
	float lbstokgs, kgstolbs;
	float fttomtrs, mtrstoft;
	float hptowatt, watttohp;
	float radtodeg, degtorad;
	float ktstofps, fpstokts;
	float ktstomsc, msctokts;
	float rpmtorsc, rsctorpm;
	float fpmtomsc, msctofpm;
	float nmtomtrs, mtrstonm;
	float sftosmtr, smtrtosf;
	float lbstontn, ntntolbs;
	float ftlbtonm, nmtoftlb;
	float endtomed, medtoend;
	float enptomep, meptoenp;
	float enItomtI, mtltoenl;
	float pasto_hg, hg_topas;
	float milto_hg, hg_tomil;
	float nm_to_sm, sm_to_nm;
	float lbhtokgs, kgstolbh;
	int metric_temp, metric_press;
};
