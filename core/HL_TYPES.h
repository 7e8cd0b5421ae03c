// The global records of the simulator, one object each for the life of the process,
// plus the two arrays of ten aircraft. Every subsystem reads and writes them directly.
#pragma once
#include "core/HL_LIMITS.h"
#include "core/flt_struct.h"
#include "core/con_struct.h"
#include "core/mnw_struct.h"
#include "core/stg_struct.h"
#include "core/msc_struct.h"
#include "core/stl_struct.h"
#include "aircraft/veh_struct.h"
#include "world/atm_struct.h"
#include "cockpit/nav_struct.h"
#include "render/ren_struct.h"
#include "net/inet_struct.h"
#include "replay/path_struct.h"

extern flt_struct flt[acf_max];
extern veh_struct veh[acf_max];
extern con_struct con;
extern mnw_struct mnw;
extern stg_struct stg;
extern msc_struct msc;
extern env_struct env;
extern rel_struct rel;
extern atm_struct atm;
extern nav_struct nav;
extern ren_struct ren;
extern scn_struct scn;
extern stl_struct stl;
extern inet_struct net;
extern path_struct pat;

// Zero-fills every record; the first thing start-up does.
void zero_all_records();
