// Joysticks and game controllers through SDL2: up to four devices in the order they were
// attached, each read as eight axis slots (X, Y, Z, Rx, Ry, Rz, two sliders) from -100 to
// 100, four hats in hundredths of a degree, and its buttons. Virtual devices go through
// the same path, for tests and scripted runs.
#include "platform/plat.h"
#include <SDL2/SDL.h>
#include <cstring>

namespace {

constexpr int max_dev = 4;
struct device {
	SDL_JoystickID id = -1;
	SDL_Joystick* joy = nullptr;
	SDL_GameController* pad = nullptr;
};
device devs[max_dev];
int ndev = 0;
bool up = false;

float scaled(Sint16 v) { return v < 0 ? v * 100.0f / 32768.0f : v * 100.0f / 32767.0f; }

void close_device(device& d)
{
	if (d.pad) SDL_GameControllerClose(d.pad);
	else if (d.joy) SDL_JoystickClose(d.joy);
	d = device{};
}

// New devices go to the end of the list; gone ones leave it, the rest closing up.
bool refresh()
{
	SDL_JoystickUpdate();
	bool changed = false;
	for (int k = 0; k < ndev;) {
		if (devs[k].joy && SDL_JoystickGetAttached(devs[k].joy)) { k++; continue; }
		close_device(devs[k]);
		for (int m = k; m + 1 < ndev; m++) devs[m] = devs[m + 1];
		devs[--ndev] = device{};
		changed = true;
	}
	const int n = SDL_NumJoysticks();
	for (int i = 0; i < n && ndev < max_dev; i++) {
		const SDL_JoystickID id = SDL_JoystickGetDeviceInstanceID(i);
		bool known = false;
		for (int k = 0; k < ndev; k++) known = known || devs[k].id == id;
		if (known) continue;
		device d;
		d.id = id;
		if (SDL_IsGameController(i)) {
			d.pad = SDL_GameControllerOpen(i);
			d.joy = d.pad ? SDL_GameControllerGetJoystick(d.pad) : nullptr;
		}
		if (!d.joy) d.joy = SDL_JoystickOpen(i);
		if (!d.joy) continue;
		devs[ndev++] = d;
		changed = true;
	}
	return changed;
}

}  // namespace

int plat_joy_init()
{
	if (!up) {
		SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");   // a window need not have the focus
		if (SDL_InitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER) != 0) return 0;
		SDL_JoystickEventState(SDL_IGNORE);   // read by polling, each frame
		up = true;
	}
	refresh();
	return 1;
}

void plat_joy_close()
{
	if (!up) return;
	for (int k = 0; k < ndev; k++) close_device(devs[k]);
	ndev = 0;
	SDL_QuitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER);
	up = false;
}

int plat_joy_update()
{
	return up && refresh() ? 1 : 0;
}

int plat_joy_count() { return ndev; }

int plat_joy_id(int dev) { return dev >= 0 && dev < ndev ? (int)devs[dev].id : -1; }

int plat_joy_read(int dev, plat_joy_state* s)
{
	std::memset(s, 0, sizeof *s);
	if (dev < 0 || dev >= ndev || !devs[dev].joy || !SDL_JoystickGetAttached(devs[dev].joy)) return 0;
	if (SDL_GameController* p = devs[dev].pad) {   // a game controller's own layout
		static const SDL_GameControllerAxis axes[6] = {SDL_CONTROLLER_AXIS_LEFTX, SDL_CONTROLLER_AXIS_LEFTY, SDL_CONTROLLER_AXIS_TRIGGERLEFT,
		                                               SDL_CONTROLLER_AXIS_RIGHTX, SDL_CONTROLLER_AXIS_RIGHTY, SDL_CONTROLLER_AXIS_TRIGGERRIGHT};
		for (int a = 0; a < 6; a++) {
			s->has_axis[a] = SDL_GameControllerHasAxis(p, axes[a]);
			const Sint16 v = SDL_GameControllerGetAxis(p, axes[a]);
			s->axis[a] = (a == 2 || a == 5) ? v * 200.0f / 32767.0f - 100.0f : scaled(v);   // a trigger runs 0 up
		}
		const bool u = SDL_GameControllerGetButton(p, SDL_CONTROLLER_BUTTON_DPAD_UP), d = SDL_GameControllerGetButton(p, SDL_CONTROLLER_BUTTON_DPAD_DOWN);
		const bool l = SDL_GameControllerGetButton(p, SDL_CONTROLLER_BUTTON_DPAD_LEFT), r = SDL_GameControllerGetButton(p, SDL_CONTROLLER_BUTTON_DPAD_RIGHT);
		s->n_hats = 1;
		s->hat[0] = u ? (r ? 4500 : l ? 31500 : 0) : d ? (r ? 13500 : l ? 22500 : 18000) : r ? 9000 : l ? 27000 : -1;
		for (int b = 0; b < SDL_CONTROLLER_BUTTON_MAX && s->n_buttons < plat_joy_max_buttons; b++) {
			if (b >= SDL_CONTROLLER_BUTTON_DPAD_UP && b <= SDL_CONTROLLER_BUTTON_DPAD_RIGHT) continue;   // the hat's
			s->button[s->n_buttons++] = SDL_GameControllerGetButton(p, (SDL_GameControllerButton)b);
		}
		return 1;
	}
	SDL_Joystick* j = devs[dev].joy;   // a plain joystick: its axes in SDL's order
	const int na = SDL_JoystickNumAxes(j);
	for (int a = 0; a < na && a < 8; a++) {
		s->has_axis[a] = 1;
		s->axis[a] = scaled(SDL_JoystickGetAxis(j, a));
	}
	s->n_hats = SDL_JoystickNumHats(j) < 4 ? SDL_JoystickNumHats(j) : 4;
	for (int h = 0; h < s->n_hats; h++) {
		static const int pos[16] = {-1, 0, 9000, 4500, 18000, -1, 13500, -1, 27000, 31500, -1, -1, 22500, -1, -1, -1};
		s->hat[h] = pos[SDL_JoystickGetHat(j, h) & 15];
	}
	const int nb = SDL_JoystickNumButtons(j);
	for (int b = 0; b < nb && s->n_buttons < plat_joy_max_buttons; b++) s->button[s->n_buttons++] = SDL_JoystickGetButton(j, b);
	return 1;
}

// The pooled slot of the device SDL just attached at that index, -1 when it failed.
static int pooled_slot(int index)
{
	if (index < 0) return -1;
	refresh();
	const SDL_JoystickID id = SDL_JoystickGetDeviceInstanceID(index);
	for (int k = 0; k < ndev; k++)
		if (devs[k].id == id) return k;
	return -1;
}

int plat_joy_attach_virtual(int axes, int hats, int buttons)
{
	if (!up && !plat_joy_init()) return -1;
	const int index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_UNKNOWN, axes, buttons, hats);   // a plain stick
	return pooled_slot(index);
}

int plat_joy_attach_virtual_pad()
{
	if (!up && !plat_joy_init()) return -1;
	SDL_VirtualJoystickDesc desc{};   // a game controller: SDL maps its axes and buttons in its own order
	desc.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
	desc.type = SDL_JOYSTICK_TYPE_GAMECONTROLLER;
	desc.naxes = SDL_CONTROLLER_AXIS_MAX;
	desc.nbuttons = SDL_CONTROLLER_BUTTON_MAX;
	desc.name = "Virtual game controller";
	const int index = SDL_JoystickAttachVirtualEx(&desc);
	return pooled_slot(index);
}

int plat_joy_detach_virtual(int dev)
{
	if (dev < 0 || dev >= ndev) return 0;
	const SDL_JoystickID id = devs[dev].id;
	for (int i = 0; i < SDL_NumJoysticks(); i++)
		if (SDL_JoystickGetDeviceInstanceID(i) == id && SDL_JoystickIsVirtual(i)) {
			close_device(devs[dev]);
			for (int m = dev; m + 1 < ndev; m++) devs[m] = devs[m + 1];
			devs[--ndev] = device{};
			return SDL_JoystickDetachVirtual(i) == 0;
		}
	return 0;
}

int plat_joy_set(int dev, char what, int n, int value)
{
	if (dev < 0 || dev >= ndev || !devs[dev].joy) return 0;
	SDL_Joystick* j = devs[dev].joy;
	switch (what) {
	case 'a': {
		const int v = value < -100 ? -100 : value > 100 ? 100 : value;
		return SDL_JoystickSetVirtualAxis(j, n, (Sint16)(v < 0 ? v * 32768 / 100 : v * 32767 / 100)) == 0;
	}
	case 'h': {
		Uint8 hat = SDL_HAT_CENTERED;   // hundredths of a degree, -1 centred
		switch (value) {
		case 0: hat = SDL_HAT_UP; break;
		case 4500: hat = SDL_HAT_RIGHTUP; break;
		case 9000: hat = SDL_HAT_RIGHT; break;
		case 13500: hat = SDL_HAT_RIGHTDOWN; break;
		case 18000: hat = SDL_HAT_DOWN; break;
		case 22500: hat = SDL_HAT_LEFTDOWN; break;
		case 27000: hat = SDL_HAT_LEFT; break;
		case 31500: hat = SDL_HAT_LEFTUP; break;
		default: break;
		}
		return SDL_JoystickSetVirtualHat(j, n, hat) == 0;
	}
	case 'b': return SDL_JoystickSetVirtualButton(j, n, value ? SDL_PRESSED : SDL_RELEASED) == 0;
	default: return 0;
	}
}
