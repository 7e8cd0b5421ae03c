// UDP exchange and cockpit hardware.
#pragma once

void NET_listen();
void NET_re_init();
void NET_close();
void NET_send_acf(int p);
void update_with_net(int p);   // moves an aircraft driven from the network   // this aircraft to the peers that take it
void NET_send_periodic();
void init_hardware_out();
void close_hardware_out(int normal);
int has_multiplayer();         // 1 while other pilots fly with us
void set_dataoutput_params();  // the data output's rates and channels for a new flight
void update_hardware_out();   // the cockpit hardware's outputs, each frame
void plot_OBJ7();   // objects placed by outside equipment, drawn behind the clouds
void plot_data_output();   // the data rows shown on screen
