// Start-up, the main loop and shutdown: the process-wide state beyond the records.
#pragma once
#include <fstream>
#include <string>

extern int g_done;                   // non-zero ends the loop
extern int have_done_first_update;   // set by the first paint; until then a pass stops after the network
extern int cntr_FM, cntr_UI;
extern float last_time_FM, last_time_UI;
extern float prd_FM_fixed;   // above 0: the flight-model period stays at this, for runners and tests
extern float ot01, ot02, ot05, ot1, ot2, ot5, ot10, ot20, ot40;

// Paths, ':' separated, built once from the program's folder.
extern std::string app_path, gen_path, res_path, afl_path, wpn_path, acf_path, sit_path, mov_path,
	log_path, fms_path, snd_path, bmp_path, cus_path, agn_path, ean_path, man_path, men_path, txt_path, key_path;

// The three logs, open from start-up to shutdown.
extern std::ofstream xer;   // Error.out: diagnostics
extern std::ofstream dat;   // Data.out: data output
extern std::ofstream cyc;   // Nimbara.out: the flight-model report

int WinMain();
void init_sim();
void MACIBM_init();
void init_gen();
void MACIBM_showinit(const char* text);
void MACIBM_event_proc();
void APPLICATION_update();
void MACIBM_finishup(int is_normal_exit);
void profile_chart(const char* loc, int is_last);
void reset_loop_state();   // counters, timer marks and the first-pass time, for a fresh start
