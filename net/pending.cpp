// Network pieces that later steps build; until then each does nothing.
#include "net/HL_NET.h"

void NET_listen() {}               // UDP: later step
void NET_re_init() {}
void NET_close() {}
void NET_send_acf(int) {}
void update_with_net(int) {}
void NET_send_periodic() {}
void init_hardware_out() {}        // cockpit hardware: later step
void close_hardware_out(int) {}
int has_multiplayer() { return 0; }   // multiplayer: later step
void set_dataoutput_params() {}      // data output: later step
void update_hardware_out() {}         // cockpit hardware: later step
void plot_OBJ7() {}   // outside visuals' objects: external-visuals step
void plot_data_output() {}   // data output on screen: data-output step
