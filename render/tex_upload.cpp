// One level of a texture to the driver, with the wrap, anisotropy and filters its id
// calls for; and the mipmap chain, built here as 2 x 2 means.
#include "render/textures.h"
#include "core/HL_TYPES.h"
#include "platform/plat.h"
#include <GL/gl.h>
#include <GL/glext.h>
#include <algorithm>

namespace {

bool in(int id, int lo, int hi) { return id >= lo && id <= hi; }

bool is_pow2(int n) { return n > 0 && (n & (n - 1)) == 0; }

int bytes_of(int rgb_type) { return rgb_type == GL_ALPHA ? 1 : rgb_type == GL_RGB ? 3 : 4; }

// Tiled things repeat across s: terrain, runways, roads, trees, clouds, water, object textures.
bool repeats(int id)
{
	return id < 49 || in(id, 50, 175) || in(id, 196, 198) || in(id, 203, 206) || in(id, 208, 211) || id == 216 || id == 217 ||
	       id == 219 || id == 220 || id == 223 || in(id, 251, 363) || in(id, 364, 376) || id == 378 || in(id, 380, 385) ||
	       in(id, 400, 410) || in(id, 421, 423) || id == 477 || in(id, 500, 999);
}

// Each fully transparent pixel takes the mean colour of the opaque ones round it, so that
// filtering pulls no key colour or black into the edges. Its alpha stays 0.
void bleed(unsigned char* a, int dx, int dy)
{
	for (int y = 0; y < dy; y++)
		for (int x = 0; x < dx; x++) {
			unsigned char* p = a + ((size_t)y * dx + x) * 4;
			if (p[3] != 0) continue;
			int sum[3] = {0, 0, 0}, n = 0;
			for (int j = std::max(0, y - 2); j <= std::min(dy - 1, y + 2); j++)
				for (int i = std::max(0, x - 2); i <= std::min(dx - 1, x + 2); i++) {
					const unsigned char* q = a + ((size_t)j * dx + i) * 4;
					if (q[3] == 0) continue;
					for (int c = 0; c < 3; c++) sum[c] += q[c];
					n++;
				}
			if (n)
				for (int c = 0; c < 3; c++) p[c] = (unsigned char)(sum[c] / n);
		}
}

}  // namespace

void OGL_load_tex(const std::string& path, int index, int reduction, int filter_type, int rgb_type, unsigned char* array)
{
	if (!check_index(path, index) || !check_rgb_type(path, rgb_type)) return;
	const int dx = ren.tex_dx_tot[index], dy = ren.tex_dy_tot[index];
	if (!is_pow2(dx) || !is_pow2(dy)) {
		tex_alert("OGL_load_tex: Trying to read a texture that is not a power of 2!", "", path);
		return;
	}
	const int bpp = bytes_of(rgb_type);
	if (reduction == 0 && bpp == 4 && index != 480 && !in(index, 180, 190)) bleed(array, dx, dy);
	const unsigned bytes = (unsigned)dx * (unsigned)dy * (unsigned)bpp;
	ren.tex_vram[index] = reduction == 0 ? bytes : ren.tex_vram[index] + bytes;
	if (!plat_has_gl()) return;   // no driver: the sizes are kept all the same
	glBindTexture(GL_TEXTURE_2D, (GLuint)index);
	glTexImage2D(GL_TEXTURE_2D, reduction, rgb_type, dx, dy, 0, (GLenum)rgb_type, GL_UNSIGNED_BYTE, array);
	const GLint edge = ren.tex_clamp_avail ? GL_CLAMP_TO_EDGE : GL_CLAMP;
	glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, repeats(index) ? GL_REPEAT : edge);
	glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, edge);   // the old clamp blends in a black border: seams between strips
	if (ren.max_iso > 0.0f)
		glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, in(index, 50, 176) || in(index, 364, 376) ? ren.max_iso : 1.0f);
	const bool mip = filter_type == filt_rgb_mip || filter_type == filt_alpha_mean_mip || filter_type == filt_key_magenta_mip ||
	                 filter_type == filt_alpha_only_mip;
	GLint min = mip ? GL_LINEAR_MIPMAP_LINEAR : GL_LINEAR, mag = GL_LINEAR;
	if (index == 468 || index == 470 || index == 471) min = GL_NEAREST;   // the font sheets, pixel for pixel
	if (index == 480) min = mag = mnw.xy_scale > 1.01f ? GL_LINEAR : GL_NEAREST;   // the panel, sharp unless stretched
	glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, min);
	glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, mag);
}

void OGL_mini_me(const std::string& path, int index, int filter_type, int rgb_type, unsigned char* array)
{
	if (!check_index(path, index) || !check_rgb_type(path, rgb_type)) return;
	const int bpp = bytes_of(rgb_type);
	const int tot_x = ren.tex_dx_tot[index], tot_y = ren.tex_dy_tot[index];
	int dx = tot_x, dy = tot_y;
	for (int level = 1; dx > 1 || dy > 1; level++) {
		const int nx = std::max(dx / 2, 1), ny = std::max(dy / 2, 1);
		for (int y = 0; y < ny; y++)   // in place: each block is read before anything lands on it
			for (int x = 0; x < nx; x++) {
				const int x0 = std::min(2 * x, dx - 1), x1 = std::min(2 * x + 1, dx - 1);
				const int y0 = std::min(2 * y, dy - 1), y1 = std::min(2 * y + 1, dy - 1);
				for (int c = 0; c < bpp; c++) {
					const int s = array[((size_t)y0 * dx + x0) * bpp + c] + array[((size_t)y0 * dx + x1) * bpp + c] +
					              array[((size_t)y1 * dx + x0) * bpp + c] + array[((size_t)y1 * dx + x1) * bpp + c];
					array[((size_t)y * nx + x) * bpp + c] = (unsigned char)(s / 4);
				}
			}
		dx = nx;
		dy = ny;
		ren.tex_dx_tot[index] = dx;
		ren.tex_dy_tot[index] = dy;
		OGL_load_tex(path, index, level, filter_type, rgb_type, array);
	}
	ren.tex_dx_tot[index] = tot_x;
	ren.tex_dy_tot[index] = tot_y;
}
