// Core services built by later steps: flight start and preferences.
#pragma once

void init_flt_0(int start_code, int start_code_2);
void init_flt_p_other_ai(int p);
void set_engines_for_start(int start_running, int on_ground);   // switches and engines, running or cold
void handle_prefs(int prf, int opr, const char* path);
