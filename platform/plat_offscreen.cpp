// An OpenGL compatibility context for tools and tests: a hidden window only to hold the
// context, and a framebuffer object of the size asked for to draw into and read back,
// since a hidden window's own pixels are not reliable.
#define GL_GLEXT_PROTOTYPES 1
#include "platform/plat.h"
#include <SDL2/SDL.h>
#include <GL/gl.h>
#include <GL/glext.h>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

SDL_Window* window = nullptr;
SDL_GLContext context = nullptr;
GLuint fbo = 0, colour = 0, depth = 0;
std::string error;

}  // namespace

int plat_offscreen_open(int width, int height)
{
	if (context) return 1;
	if (width < 1 || height < 1 || width > 8192 || height > 8192) {
		error = "the picture must be 1 to 8192 pixels each way";
		return 0;
	}
	const char* x11 = std::getenv("DISPLAY");
	const char* wayland = std::getenv("WAYLAND_DISPLAY");
	if ((!x11 || !*x11) && (!wayland || !*wayland)) {   // SDL's fallbacks would draw on no known screen
		error = "no display: DISPLAY is not set (run under an X server or xvfb-run)";
		return 0;
	}
	if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
		error = std::string("no display: ") + SDL_GetError();
		return 0;
	}
	SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
	window = SDL_CreateWindow("nimbara", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, 16, 16, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
	if (window) context = SDL_GL_CreateContext(window);
	if (!context) {
		error = std::string("no OpenGL context: ") + SDL_GetError();
		plat_offscreen_close();
		return 0;
	}
	SDL_GL_MakeCurrent(window, context);
	glGenFramebuffers(1, &fbo);
	glGenRenderbuffers(1, &colour);
	glGenRenderbuffers(1, &depth);
	glBindRenderbuffer(GL_RENDERBUFFER, colour);
	glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
	glBindRenderbuffer(GL_RENDERBUFFER, depth);
	glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH24_STENCIL8, width, height);
	glBindFramebuffer(GL_FRAMEBUFFER, fbo);
	glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, colour);
	glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER, depth);
	if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
		error = "the offscreen framebuffer is incomplete";
		plat_offscreen_close();
		return 0;
	}
	glDrawBuffer(GL_COLOR_ATTACHMENT0);
	glReadBuffer(GL_COLOR_ATTACHMENT0);
	glViewport(0, 0, width, height);
	return 1;
}

void plat_offscreen_close()
{
	if (context) {
		if (fbo) {
			glBindFramebuffer(GL_FRAMEBUFFER, 0);
			glDeleteFramebuffers(1, &fbo);
			glDeleteRenderbuffers(1, &colour);
			glDeleteRenderbuffers(1, &depth);
		}
		SDL_GL_DeleteContext(context);
	}
	if (window) SDL_DestroyWindow(window);
	fbo = colour = depth = 0;
	context = nullptr;
	window = nullptr;
	SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

int plat_offscreen_active() { return context != nullptr; }

const char* plat_offscreen_error() { return error.c_str(); }
