// The windowed backend: one SDL2 window with an OpenGL compatibility context. SDL's
// events become the window procedure's messages; the clock is the monotonic one.
#include "platform/plat.h"
#include <SDL2/SDL.h>
#include <csignal>
#include <cstdio>

extern volatile sig_atomic_t plat_stop_requested;

static SDL_Window* window = nullptr;
static SDL_GLContext context = nullptr;
static int pending_paint = 0, pending_create = 0;

// Virtual-key codes, as the key map numbers keys.
static int vk_of(SDL_Keycode k)
{
	if (k >= SDLK_a && k <= SDLK_z) return 'A' + (k - SDLK_a);
	if (k >= SDLK_0 && k <= SDLK_9) return '0' + (k - SDLK_0);
	if (k >= SDLK_F1 && k <= SDLK_F12) return 112 + (k - SDLK_F1);
	if (k >= SDLK_KP_1 && k <= SDLK_KP_9) return 97 + (k - SDLK_KP_1);
	switch (k) {
	case SDLK_KP_0: return 96;
	case SDLK_BACKSPACE: return 8;
	case SDLK_TAB: return 9;
	case SDLK_RETURN: case SDLK_KP_ENTER: return 13;
	case SDLK_LSHIFT: case SDLK_RSHIFT: return 16;
	case SDLK_LCTRL: case SDLK_RCTRL: return 17;
	case SDLK_LALT: case SDLK_RALT: return 18;
	case SDLK_PAUSE: return 19;
	case SDLK_ESCAPE: return 27;
	case SDLK_SPACE: return 32;
	case SDLK_PAGEUP: return 33;
	case SDLK_PAGEDOWN: return 34;
	case SDLK_END: return 35;
	case SDLK_HOME: return 36;
	case SDLK_LEFT: return 37;
	case SDLK_UP: return 38;
	case SDLK_RIGHT: return 39;
	case SDLK_DOWN: return 40;
	case SDLK_INSERT: return 45;
	case SDLK_DELETE: return 46;
	case SDLK_KP_MULTIPLY: return 106;
	case SDLK_KP_PLUS: return 107;
	case SDLK_KP_MINUS: return 109;
	case SDLK_KP_PERIOD: return 110;
	case SDLK_KP_DIVIDE: return 111;
	case SDLK_SEMICOLON: return 186;
	case SDLK_EQUALS: return 187;
	case SDLK_COMMA: return 188;
	case SDLK_MINUS: return 189;
	case SDLK_PERIOD: return 190;
	case SDLK_SLASH: return 191;
	case SDLK_BACKQUOTE: return 192;
	case SDLK_LEFTBRACKET: return 219;
	case SDLK_BACKSLASH: return 220;
	case SDLK_RIGHTBRACKET: return 221;
	case SDLK_QUOTE: return 222;
	default: return 0;
	}
}

int plat_open_window(int width, int height)
{
	if (window) return 1;
	SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");   // SIGINT and SIGTERM stay ours
	SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");   // a screen saver may blank a paused simulator
	if (SDL_Init(SDL_INIT_VIDEO) != 0) {
		std::fprintf(stderr, "nimbara: SDL could not start: %s\n", SDL_GetError());
		return 0;
	}
	SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
	SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
	SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);
	SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 8);
	window = SDL_CreateWindow("Nimbara", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, width, height,
	                          SDL_WINDOW_OPENGL | SDL_WINDOW_SHOWN | SDL_WINDOW_RESIZABLE);
	if (!window) {
		std::fprintf(stderr, "nimbara: no window: %s\n", SDL_GetError());
		return 0;
	}
	pending_create = 1;
	pending_paint = 1;   // not every server sends an expose for a new window
	return 1;
}

int plat_make_context()
{
	if (!window) return 0;
	if (!context) context = SDL_GL_CreateContext(window);
	if (!context) {
		std::fprintf(stderr, "nimbara: no OpenGL context: %s\n", SDL_GetError());
		return 0;
	}
	SDL_GL_MakeCurrent(window, context);
	SDL_GL_SetSwapInterval(1);
	return 1;
}

void plat_close_window()
{
	if (context) SDL_GL_DeleteContext(context);
	if (window) SDL_DestroyWindow(window);
	context = nullptr;
	window = nullptr;
	SDL_Quit();
}

int plat_has_gl() { return context != nullptr; }

int plat_next_msg(plat_msg* m)
{
	m->a = m->b = 0;
	if (plat_stop_requested) { plat_stop_requested = 0; m->type = msg_destroy; return 1; }
	if (pending_create) { pending_create = 0; m->type = msg_create; return 1; }
	if (pending_paint) { pending_paint = 0; m->type = msg_paint; return 1; }
	if (!window) return 0;
	SDL_Event e;
	while (SDL_PollEvent(&e)) {
		switch (e.type) {
		case SDL_QUIT: m->type = msg_destroy; return 1;
		case SDL_WINDOWEVENT:
			if (e.window.event == SDL_WINDOWEVENT_EXPOSED) { m->type = msg_paint; return 1; }
			if (e.window.event == SDL_WINDOWEVENT_CLOSE) { m->type = msg_destroy; return 1; }
			if (e.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) {
				m->type = msg_size;
				SDL_GL_GetDrawableSize(window, &m->a, &m->b);
				return 1;
			}
			break;
		case SDL_KEYDOWN:
		case SDL_KEYUP:
			m->a = vk_of(e.key.keysym.sym);
			if (!m->a) break;
			m->type = e.type == SDL_KEYDOWN ? msg_keydown : msg_keyup;
			return 1;
		case SDL_MOUSEMOTION: m->type = msg_mousemove; m->a = e.motion.x; m->b = e.motion.y; return 1;
		case SDL_MOUSEBUTTONDOWN:
		case SDL_MOUSEBUTTONUP: {
			int down = e.type == SDL_MOUSEBUTTONDOWN;
			m->type = e.button.button == SDL_BUTTON_RIGHT ? (down ? msg_rbuttondown : msg_rbuttonup)
			                                               : (down ? msg_lbuttondown : msg_lbuttonup);
			m->a = e.button.x; m->b = e.button.y;
			return 1;
		}
		case SDL_MOUSEWHEEL: m->type = msg_mousewheel; m->a = e.wheel.y * 120; return 1;
		default: break;
		}
	}
	m->type = msg_none;
	return 0;
}

void plat_swap_buffers()
{
	if (window && context) SDL_GL_SwapWindow(window);
}

void plat_message_box(const char* title, const char* text)
{
	std::fprintf(stderr, "%s\n%s\n", title, text);
	if (!context) SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, title, text, window);   // later the simulator draws its alerts
}

void plat_showinit(const char* text) { std::printf("%s\n", text); std::fflush(stdout); }

void plat_set_cursor(int kind)
{
	// The system's own shapes: turning and rocking both read as arrows along the motion.
	static SDL_Cursor* made[12] = {};
	static int shown = -1;
	if (kind < 0 || kind > 11) kind = 0;
	if (kind == shown || !window) return;
	SDL_SystemCursor sys = SDL_SYSTEM_CURSOR_ARROW;
	if (kind >= 2 && kind <= 5) sys = SDL_SYSTEM_CURSOR_SIZEALL;
	else if (kind == 6 || kind == 7 || kind == 11) sys = SDL_SYSTEM_CURSOR_SIZENS;
	else if (kind == 8 || kind == 9) sys = SDL_SYSTEM_CURSOR_SIZEWE;
	else if (kind == 10) sys = SDL_SYSTEM_CURSOR_HAND;
	if (!made[kind]) made[kind] = SDL_CreateSystemCursor(sys);
	if (made[kind]) SDL_SetCursor(made[kind]);
	shown = kind;
}

std::string plat_program_folder() { return plat_exe_folder(); }
