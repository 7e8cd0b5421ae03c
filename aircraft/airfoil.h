// Airfoils: lift, drag and moment coefficient tables over the whole circle, one set per
// element end (root, tip) and per Reynolds number, read from airfoil files or made from
// a handful of shape parameters.
#pragma once

constexpr int afl_tab = 721;   // -180..-20 by 1, -20..20 by 0.1, 20..180 by 1 degree
constexpr int afl_part_max = 44;

struct airfoil_struct {
	float re_num[2][2];     // [RT][Re], millions
	float t_rat[2], mach_div[2];
	float clM[2][2], clB[2][2], almin[2][2], almax[2][2];
	float cl[2][2][afl_tab], cd[2][2][afl_tab], cm[2][2][afl_tab];
	float Llinrange, Lpow, Lstall, Ldrop1, Lpowstl, Ldrop2;
	float Dmin, DminCL, Dal10, Dpow;
	float Bloc, Bwidth, Bdepth, Bpower;
	float cmal2, cmal3, cm1, cm2, cm3, cm4;
};

constexpr float cl_rat = 0.5f;   // lift near reversed flow is half that near normal flow
constexpr float cd_rat = 4.0f;   // drag near reversed flow is four times that near normal flow

float afl_alpha_of_index(int i);
float afl_index_of_alpha(float alpha);   // fractional, held to 0..719

int IO_afl(int IO_type, airfoil_struct* afl, int RT, int Re, const char* path);
void gen_cl_cd_cm(airfoil_struct* afl, int RT, int Re);
float ret_cl(float al, const airfoil_struct* afl, int RT, int Re);
float ret_cd(float al, const airfoil_struct* afl, int RT, int Re);
float ret_cm(float al, const airfoil_struct* afl);
void load_foil_for_part(const char* foil_name, int p, int en, int RT, int Re);

// Table lookup at an angle, cd held to 0 or more; and the blend between the two
// Reynolds tables of one end at Re (millions), as the flight model looks them up.
void afl_table_lookup(const airfoil_struct* afl, int RT, int Re, float alpha, float* cl, float* cd, float* cm);
void afl_re_blend(const airfoil_struct* afl, int RT, float re_mil, float alpha, float* cl, float* cd, float* cm);
