// A weapon as loaded: `veh[p].wpn[w]`. Until the weapon step gives it its fields it
// stands here at its exact size, so that the aircraft record keeps its layout.
#pragma once

struct wpn_struct {
	int raw[2389];
};
static_assert(sizeof(wpn_struct) == 9556, "the weapon record's size is part of the aircraft record's layout");
