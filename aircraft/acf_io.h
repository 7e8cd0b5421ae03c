// The aircraft file: a five-byte header (byte order, version) and the record's image
// up to end_of_data. Reading, writing, byte reversal and the engine-class tests.
#pragma once
#include "aircraft/veh_struct.h"

int IO_acf(int IO_type, int p, int is_batch);
void rev_bytes_new(veh_struct& v);
int en_is_prop(int p, int en);
int en_is_jet(int p, int en);
int en_is_roc(int p, int en);

// The raw image, without the load's checks: for the designer and the reader alike.
// acf_read_image fills v only when the file is a whole version-740 aircraft file; on
// failure it returns 0 and says why in *why.
int acf_read_image(const char* path, veh_struct& v, const char** why);
int acf_write_image(const char* path, veh_struct& v, int big_endian);

// Built by later steps: the old-file reader, the load's defaults and checks, the cockpit object.
int OLD_IO_acf(int p, veh_struct& v);
void ACF_autoset(int p);
void panel_equipment(veh_struct& v);   // what the panel shows the aircraft carries, and where its lever groups stand
int ACF_check(int p, int is_batch);
int build_cockpit_object(const char* path);
int IO_wpn(int IO_type, int p, int w, const char* name, char* scratch, int batch);
int wpn_drop_tank_station();          // the first drop tank still on its station, -1 for none
void wpn_release_station(int station);   // lets the weapon on that station go
