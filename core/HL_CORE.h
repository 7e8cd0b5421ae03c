// Core services built by later steps: flight start and preferences.
#pragma once

void init_flt_0(int start_code, int start_code_2);
void init_flt_p_other_ai(int p);
void handle_prefs(int prf, int opr, const char* path);
