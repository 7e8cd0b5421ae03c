// The panel's knobs: a click on either half of a knob's box steps its value, holding turns it
// at its rate. Knobs are part of the plate, so nothing is drawn here.
#include "cockpit/panel.h"
#include "core/HL_TYPES.h"
#include "core/files.h"
#include <algorithm>
#include <cmath>

namespace {

bool in(int v, int lo, int hi) { return v >= lo && v <= hi; }

struct knob {
	float* value;
	float step, rate, lo, hi;
	bool wraps, subtracted;
};

bool knob_of(int type, knob* k)
{
	*k = {nullptr, 1.0f, 30.0f, 0.0f, 360.0f, true, false};
	if (type == 40 || type == 250 || type == 274) *k = {&ren.hud_brt, 0.1f, 0.3f, 0.1f, 1.0f, false, false};
	else if (type == 39 || type == 248 || type == 249) *k = {&ren.pan_brt, 0.1f, 0.3f, 0.1f, 1.0f, false, false};
	else if (in(type, 500, 502)) *k = {&ren.ins_brt, 0.1f, 0.3f, 0.1f, 1.0f, false, false};
	else if (type == 42 || type == 503 || type == 506) k->value = &nav.OBS_mag[0];
	else if (type == 43 || type == 504 || type == 507) k->value = &nav.OBS_mag[1];
	else if (type == 375 || type == 505 || type == 508) k->value = &nav.OBS_mag[nav.HSIsel == 2 ? 4 : std::clamp(nav.HSIsel, 0, 1)];
	else if (type == 44 || type == 509 || type == 511) k->value = &nav.CARD_mag[2], k->subtracted = true;
	else if (type == 45 || type == 510 || type == 512) k->value = &nav.CARD_mag[3], k->subtracted = true;
	else if (type == 41 || type == 513 || type == 514) *k = {&nav.baro_setting_HG, 0.01f, 0.1f, 0.0f, 35.0f, false, false};
	else if (type == 46 || type == 515 || type == 516)
		*k = {&nav.radalt_bug_ft, 10.0f, nav.radalt_bug_ft >= 500.0f ? 500.0f : 100.0f, 0.0f, 2500.0f, false, false};
	else if (type == 517 || type == 518) *k = {&nav.ah_adjust, 1.0f, 10.0f, -5.0f, 5.0f, false, false};
	else if (type == 519) k->value = &flt[0].dg_drift[0], k->subtracted = true;
	else if (type == 478) k->value = &nav.hdg_hold_mag;
	return k->value != nullptr;
}

}  // namespace

void update_rhe(float x, float y, int type)
{
	knob k;
	if (!knob_of(type, &k)) {
		NB_ALERT("Bad update_rhe type!", "instrument path:", ins_layer_path(type, 0), "", alert_notice);
		return;
	}
	float d = but_scroll(0, x, y, 10.0f, k.step, k.rate, 1);
	if (d == 0.0f) return;
	if (k.subtracted) d = -d;   // the card turns against the knob
	float v = *k.value + d;
	if (k.wraps) {
		v = std::fmod(v, 360.0f);
		if (v < 0.0f) v += 360.0f;
	}
	else v = std::clamp(v, k.lo, k.hi);
	*k.value = v;
}
