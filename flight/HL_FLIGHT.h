// The flight step: choice of update per aircraft, pilot input, the two sub-steps of
// forces and integration, the force accumulators and the derived air data.
#pragma once
struct flt_struct;

void PLANE_math_in_flight(int p);
void update_with_fullsim1(int p);
void update_with_fullsim2(int p);
void set_vel_flight(int i);
void update_derived_flt(int p);
void ret_q_shift(const flt_struct& f, float q[4]);   // rotation from the local frame to the horizon at the aircraft   // air data, path angles and cached trigonometry after a sub-step
void WORLD_math_in_flight();

// Force accumulators of aircraft 0's sub-step, aircraft axes (x right, y up, z aft).
// Arms: axial (y, x); side (y, z); normal (x, z).
void addFaero(float drag, float side, float lift, float x, float y, float z, int en, int el);
void addFaero_BOMB(float drag, float side, float lift, float x, float y, float z,
                   float sin_alph, float cos_alph, float sin_beta, float cos_beta,
                   float* fside, float* fnrml, float* faxil, float* L, float* M, float* N);
void addFaprop(int p, float F, float arm1, float arm2);
void addFsprop(int p, float F, float arm1, float arm2);
void addFnprop(int p, float F, float arm1, float arm2);
void addFagear(int p, float F, float arm1, float arm2);
void addFsgear(int p, float F, float arm1, float arm2);
void addFngear(int p, float F, float arm1, float arm2);
void addFaprop_MOMENT_ONLY(float F, float arm1, float arm2, float* mom1, float* mom2);
void addFsprop_MOMENT_ONLY(float F, float arm1, float arm2, float* mom1, float* mom2);
void addFnprop_MOMENT_ONLY(float F, float arm1, float arm2, float* mom1, float* mom2);
void inc_v(float* vx, float* vy, float* vz, float x, float y, float z);
void inc_mass_mi(float x, float y, float z, float m, const char* comment);

// Element forces and their coefficients.
void subsonic_co_lookup(float alpha, float* cl, float* cd, float* cm, int en, int r, int t, int el, int bld);
void Fco_subsonic(float trat, float drag_div, float Mach, float modcl, float modcd, float modcm, float* cl, float* cd,
                  float* cm, int en, int el, int bld);
void Fco_supersonic(float trat, float Mach, float modcl, float modcd, float modcm, float* cl, float* cd, float* cm,
                    int en, int el, int bld);
float F_el_force(float modcl, float modcd, float modcm, float* lift, float* drag, float* momt, int en, int el, int bld);
float ret_ge_hgt_mtrs(int en);
float control_crat(int p, int en, float el, int type);
float flap_cl_rat(float def);
void ret_prop_wash(const flt_struct& f, int w, float wash[3]);   // thrust point w's wash, aircraft axes
void set_con_eff(int en, int el, int type, float def, float* mod_al, float* mod_cl, float* mod_cd, float* mod_cm,
                 const char* name, int is_end);

// Engines, fuel and electrics; the shafts.
void init_engine_specs(int en, int burn_fuel);
void do_a_jet(int en);
void apply_point_thrust(int en, float thrust);
void do_engines(int i);
void do_rockets_jato_puffers();
float get_rocket_thrust(int en);
float fuelburn_kgpersec(float pow_thr, int en);
float gen_avail(int en);
float tot_volt_avail();
int eng_has_fadec(int p, int en);
int fadec_is_running(int p, int en);
void set_thro(int en, float thro);
void set_prop(int en, float rsc);
void set_mixt(int en, float mixt);
void set_ptch(int en, float ptch);
float set_thro_prop(float flt_dat, int en, int flt_to_prp);
void auto_set_thro_prop(float lever, float* thro, float* prop);
void update_fuel_system();
float get_clutch_trq(int en, float rsc_prop_side);
void do_all_props();
void do_a_prop(int en);
float get_dv_total(float dv_total_now, float thrust, float area, float v_thru_disc);

// Built by later steps (stubs in flight/pending.cpp until then).
void update_with_AI(int p);
void update_def_angles(int p);
void update_hydraulics();                 // rel.hyd_rat from the pumps, ram air and failure
float ret_rpm_rat(int en);
void update_autopilot(int p);
void update_control_laws(int p);
void touchdown_keys(int reverse);   // the reverse and autopilot-disconnect keys at touchdown
void update_effects(int p);
void update_gauges(int p);
void update_gyro_feeds();  // the vacuum and the inverted bus that spin the gyros
void manage_gyro(int g);   // the vacuum (0) or electric (1) gyros' attitude and heading
void update_failures();
void attach_weapon(int p, int w);
void stop_fire();
void update_trims(int fn, int dir);           // a trim button held
void update_rocket(int p, int mode, float until);   // a manoeuvre rocket fires until then
void force_weapons();
void integ_weapons(int p);
struct body_state { double x, y, z; float vx, vy, vz, the, psi, phi, h_path, v_path, V; };
int weapon_to_track(body_state* s);   // the last weapon in free flight of the first aircraft that has one, -1 for none
void inc_weapon_masses();
void do_electrics();
void do_lines();
void do_ground_effect();
void do_lifting_parts();
void do_bodies_and_drag();
void get_body_coeffs(float s_frn, float s_sid, float s_top, float cd_0, float v_msc, float alph_rad, float* sublift, float beta_rad,
                     float* subside, float angl_rad, float* subdrag);
void do_contact();
int pedals_steer();
// A point of the aircraft and its velocity relative to the aircraft's centre (vx, vy, vz
// in aircraft axes), the rotation's part added, turned into the world's axes.
void point_to_world(const flt_struct& f, float x, float y, float z, float vx, float vy, float vz, float* px, float* py, float* pz,
                    float* wx, float* wy, float* wz);   // steering and the water rudder follow the pedals, else the yoke's roll
// One point against the surface: spring and damper along its normal, the tyre's friction;
// 1 when in contact. Forces go to the gear accumulators.
int handle_contact_point(int p, int en, double x_glo_ctr, float vx_glo_ctr, float x_veh, float vx_veh, float fco_roll, double y_glo_ctr, float vy_glo_ctr,
                         float y_veh, float vy_veh, float fco_stat, float spr_con, float* tire_steer, double z_glo_ctr, float vz_glo_ctr, float z_veh,
                         float vz_veh, float fco_kine, float spr_dmp);
// One keel point of body en (station s, point r) against the water, in aircraft axes:
// buoyancy, damping, planing, drag and side force; 1 when it is under water.
int handle_float_point(int en, int s, int r, float x_acf, float y_acf, float z_acf);
void do_water();          // every body's keel points, the water rudder, the anchor
void do_water_bomber();   // the scoop and the dump of a water bomber's load
void do_wire_and_catapult();
void do_tow_wake();
void do_line_ends();
void do_gpws();
