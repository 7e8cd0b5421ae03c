#include "support/fleet.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

void zero_stability_gains(veh_struct& v)
{
	v.ASlo_thedot_k = v.ASlo_psidot_k = v.ASlo_phidot_k = v.ASlo_the_k = v.ASlo_phi_k = 0.0f;
	v.AShi_G_k = v.AShi_Gdot_k = v.AShi_alpha_k = v.AShi_alphadot_k = 0.0f;
	v.AShi_beta_k = v.AShi_betadot_k = v.AShi_phidot_k = 0.0f;
}

struct Flown { float phi, the, psi, P, Q, R, vx, vy, vz; };

// Three seconds of the helicopter from a hover start with a little stick in each axis.
Flown fly(bool zero_gains, int art_stab_on)
{
	EXPECT_EQ(start_fleet_aircraft("Helicopters:Hornet 250:Hornet 250.acf", 900.0f), 1);
	flt[0].y_agl_mtr = 900.0f;
	set_engines_for_start(1, 0);
	if (zero_gains) zero_stability_gains(veh[0]);
	stg.art_stab_on = stg.yaw_damper_on = art_stab_on;
	for (int n = 0; n < 150; n++) {
		mnw.YK_ptch = 0.1f; mnw.YK_roll = -0.2f; mnw.YK_hdng = 0.15f;
		WORLD_math_all_cases();
		WORLD_math_in_flight();
		PLANE_math_in_flight(0);
	}
	const flt_struct& f = flt[0];
	return {f.phi, f.the, f.psi, f.P, f.Q, f.R, f.vx, f.vy, f.vz};
}

bool same(const Flown& a, const Flown& b)
{
	return a.phi == b.phi && a.the == b.the && a.psi == b.psi && a.P == b.P && a.Q == b.Q && a.R == b.R &&
	       a.vx == b.vx && a.vy == b.vy && a.vz == b.vz;
}

}  // namespace

TEST(ArtificialStability, WithEveryGainAtZeroItChangesNothing)
{
	// The design's own gains do act, so the comparison below can tell.
	EXPECT_FALSE(same(fly(false, 1), fly(false, 0)));
	const Flown on = fly(true, 1), off = fly(true, 0);
	EXPECT_TRUE(same(on, off)) << "roll " << on.phi << " against " << off.phi << ", yaw rate " << on.R << " against " << off.R;
	EXPECT_TRUE(std::isfinite(on.phi) && std::isfinite(on.vx));
}
