// Storage of the global records.
#include "core/HL_TYPES.h"
#include <cstring>
#include <type_traits>

flt_struct flt[acf_max];
veh_struct veh[acf_max];
con_struct con;
mnw_struct mnw;
stg_struct stg;
msc_struct msc;
env_struct env;
rel_struct rel;
atm_struct atm;
nav_struct nav;
ren_struct ren;
scn_struct scn;
stl_struct stl;
inet_struct net;
path_struct pat;

template <class T> static void zero(T& rec)
{
	static_assert(std::is_trivially_copyable_v<T>, "records are plain data");
	std::memset(&rec, 0, sizeof rec);
}

void zero_all_records()
{
	zero(flt); zero(veh); zero(con); zero(mnw); zero(stg); zero(msc); zero(env);
	zero(rel); zero(atm); zero(nav); zero(ren); zero(scn); zero(stl); zero(net); zero(pat);
}
